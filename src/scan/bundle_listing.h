// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "scan/application_scan.h"
#include "scan/open_folder.h"

namespace quillet {

/// Where a folder lies, a bundle's above all: below one that is trusted, by names that may be no
/// links.
struct BundlePlace {
  std::filesystem::path folder;
  std::vector<std::string> names;

  [[nodiscard]] std::filesystem::path path() const;
  /// Absent where it is gone or has become a link. Throws std::system_error.
  [[nodiscard]] std::optional<OpenFolder> open() const;
};

struct BundleListing {
  std::vector<ScannedFolder> folders;
  std::vector<BundlePlace> places;
  ScanEnd end = ScanEnd::complete;
};

/// Finds up to `most` bundles; see scanApplications() for what is looked at. `stopped` may be
/// empty.
[[nodiscard]] BundleListing listBundles(const std::vector<std::filesystem::path>& folders,
                                        const std::function<bool()>& stopped,
                                        std::size_t most = kMostBundles);

}  // namespace quillet
