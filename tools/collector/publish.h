// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "collector/sql_database.h"
#include "collector/stop_watch.h"

namespace quillet {

/// Writes the price files of all that is recorded into the place below `folder` where the product
/// reads them, and says of each what became of it. Returns how many storefronts there are. Throws
/// DatabaseError, std::system_error for the folder, and Stopped: between two files, each of which
/// is the old one or the new one then, or while another process publishes there.
[[nodiscard]] std::size_t publishRecord(SqlDatabase& database, const std::filesystem::path& folder,
                                        const std::function<void(const std::string& line)>& say,
                                        StopWatch stop);

}  // namespace quillet
