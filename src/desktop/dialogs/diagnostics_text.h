// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QString>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "desktop/models/view_world.h"
#include "desktop/services/recent_log.h"
#include "net/task.h"
#include "system/endpoints.h"
#include "system/places.h"

namespace quillet {

/// Where what Quillet knows of itself and of the machine is asked for.
struct DiagnosticSources {
  std::string version;
  std::filesystem::path program;
  std::filesystem::path home;  ///< which a text calls "~"
  Places places;
  Endpoints endpoints;
  std::function<std::size_t()> requests;  ///< of the last minute
  std::function<bool()> hasTray;
  std::function<std::optional<QDBusConnection>()> bus;  ///< the session's; absent until it is known
  std::function<std::vector<RecentLog::Line>()> log;
};

/// What a text tells of which apps the user has to do with.
enum class AppMentions { none, asLogged };

/// What is below the home begins with "~": a home says whose it is, and is long.
[[nodiscard]] QString placeText(const std::filesystem::path& place,
                                const std::filesystem::path& home);

/// All of it as lines, headings between them. Files are read on a worker; what cannot be learned
/// within some seconds is said to be unknown. The sources are read before the first wait.
[[nodiscard]] Task<QString> diagnosticsText(ViewWorld world, DiagnosticSources sources,
                                            AppMentions mentions);

}  // namespace quillet
