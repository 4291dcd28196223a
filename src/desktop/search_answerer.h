// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>

#include "base/log_sink.h"

namespace quillet {

/// Answers the desktop's searches from the library, without a window, services or the network,
/// until nobody has asked for a minute; returns the process's status. Where the user chooses
/// something the process becomes a start of the application, and this does not return. The
/// session's bus, which starts it, may end whatever else the process leaves behind, so it starts
/// none.
[[nodiscard]] int answerSearches(const std::filesystem::path& library,
                                 const std::string& storefront, const LogSink& say);

}  // namespace quillet
