// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>

#include "collector/sql_database.h"
#include "collector/stop_watch.h"

namespace quillet {

/// That what would be published is not what anybody wants to see published; the text says why.
class UnfitForPublication : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// How publishing is to go.
struct PublishingWishes {
  std::filesystem::path folder;
  Instant now;
  bool mayShrink = false;  ///< whether much less than before may be published
};

/// Writes the price files of all that is recorded into the place below the folder where the product
/// reads them, and says of each what became of it. Returns how many storefronts there are. Only
/// reads the record. Throws DatabaseError, std::system_error for the folder, UnfitForPublication
/// with nothing replaced, and Stopped: between two files, each of which is the old one or the new
/// one then, or while another process publishes there.
[[nodiscard]] std::size_t publishRecord(SqlDatabase& database, const PublishingWishes& wishes,
                                        const std::function<void(const std::string& line)>& say,
                                        StopWatch stop);

}  // namespace quillet
