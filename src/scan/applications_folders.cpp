// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "scan/applications_folders.h"

#include <algorithm>
#include <array>
#include <string>
#include <system_error>

#include "scan/bundle_listing.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

/// Where a disk has them; some drivers show what it holds in a folder "root".
std::array<BundlePlace, 2> placesOn(const fs::path& media, const std::string& disk) {
  return {{{media, {disk, "Applications"}}, {media, {disk, "root", "Applications"}}}};
}

/// None that is a link: it could lead out of the disk.
bool holdsBundle(const BundlePlace& place) {
  return place.open() && !listBundles({place.path()}, {}, 1).places.empty();
}

void addFoldersOf(const fs::path& media, const std::string& disk, std::vector<fs::path>& folders) {
  for (const BundlePlace& place : placesOn(media, disk)) {
    try {
      if (holdsBundle(place)) folders.push_back(place.path());
    } catch (const std::system_error&) {
      continue;  // a disk that cannot be read is not proposed, and the others are
    }
  }
}

}  // namespace

std::vector<fs::path> applicationsFoldersOn(const std::vector<fs::path>& mediaFolders) {
  std::vector<fs::path> folders;
  for (const fs::path& media : mediaFolders) {
    try {
      OpenFolder opened(media);
      while (const auto disk = opened.next()) {
        if (disk->isFolder) addFoldersOf(media, disk->name, folders);
      }
    } catch (const std::system_error&) {
      continue;  // most systems have one of the media folders alone
    }
  }
  std::sort(folders.begin(), folders.end());
  return folders;
}

}  // namespace quillet
