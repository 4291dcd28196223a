// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "library/app_key.h"

class QMimeData;

namespace quillet {

// What can be taken along of apps.

struct NamedKey {
  AppKey app;
  QString name;  ///< empty where it is not known
};

/// Name and link of each, as a text and as links.
[[nodiscard]] std::unique_ptr<QMimeData> appLinks(const std::vector<NamedKey>& apps);

/// What tells of the app on the command line, to paste into a POSIX shell.
[[nodiscard]] QString infoCommand(const AppKey& app);

}  // namespace quillet
