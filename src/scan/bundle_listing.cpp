// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "scan/bundle_listing.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <system_error>
#include <utility>

#include "base/text.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kBundleEnding = ".app";

/// A Mac's disk does not tell letter case apart.
bool isBundleName(std::string_view name) {
  return name.size() > kBundleEnding.size() && lowerAscii(name).ends_with(kBundleEnding);
}

bool isMissing(const std::system_error& error) {
  return error.code() == std::errc::no_such_file_or_directory;
}

class Lister {
 public:
  Lister(const std::function<bool()>& stopped, std::size_t most) : stopped_(stopped), most_(most) {}

  void list(const fs::path& path) {
    listing_.folders.push_back({path, FolderState::empty, 0, {}});
    ScannedFolder& folder = listing_.folders.back();
    const std::size_t before = listing_.places.size();
    try {
      OpenFolder opened(path);
      listIn(opened, {path, {}}, folder);
    } catch (const std::system_error& error) {
      folder.state = isMissing(error) ? FolderState::missing : FolderState::unreadable;
      if (folder.state == FolderState::unreadable) folder.reason = error.code().message();
    }
    folder.bundles = listing_.places.size() - before;
    std::sort(listing_.places.begin() + static_cast<std::ptrdiff_t>(before), listing_.places.end(),
              [](const auto& left, const auto& right) { return left.names < right.names; });
  }

  [[nodiscard]] bool hasEnded() const { return listing_.end != ScanEnd::complete; }

  [[nodiscard]] BundleListing take() { return std::move(listing_); }

 private:
  /// What lies in the folder that was given, or in one of its own.
  void listIn(OpenFolder& opened, const BundlePlace& within, ScannedFolder& folder) {
    while (!hasEnded()) {
      const auto entry = opened.next();
      if (!entry) return;
      if (entry->name.starts_with('.')) continue;
      if (folder.state == FolderState::empty) folder.state = FolderState::read;
      if (!entry->isFolder) continue;
      BundlePlace place = within;
      place.names.push_back(entry->name);
      if (isBundleName(entry->name)) {
        add(opened, std::move(place));
      } else if (within.names.empty()) {
        descend(opened, place, folder);
      }
    }
  }

  void descend(const OpenFolder& opened, const BundlePlace& place, ScannedFolder& folder) {
    if (stopped_ && stopped_()) {
      listing_.end = ScanEnd::stopped;
      return;
    }
    try {
      auto inner = opened.folder(place.names.back());
      if (inner) listIn(*inner, place, folder);
    } catch (const std::system_error& error) {
      // What lies in there is not known to be gone, and the rest can be read.
      folder.state = FolderState::unreadable;
      folder.reason = printable(place.path().string()) + ": " + error.code().message();
    }
  }

  void add(const OpenFolder& opened, BundlePlace place) {
    const auto status = opened.status(place.names.back());
    if (!status || !seen_.emplace(status->st_dev, status->st_ino).second) return;
    if (listing_.places.size() == most_) {
      listing_.end = ScanEnd::tooMany;
    } else {
      listing_.places.push_back(std::move(place));
    }
  }

  const std::function<bool()>& stopped_;
  std::size_t most_;
  BundleListing listing_;
  std::set<std::pair<dev_t, ino_t>> seen_;
};

}  // namespace

fs::path BundlePlace::path() const {
  fs::path path = folder;
  for (const std::string& name : names) path /= name;
  return path;
}

std::optional<OpenFolder> BundlePlace::open() const {
  std::optional<OpenFolder> opened(std::in_place, folder);
  for (const std::string& name : names) {
    opened = opened->folder(name);
    if (!opened) return std::nullopt;
  }
  return opened;
}

BundleListing listBundles(const std::vector<fs::path>& folders,
                          const std::function<bool()>& stopped, std::size_t most) {
  Lister lister(stopped, most);
  for (const fs::path& folder : folders) {
    if (lister.hasEnded()) break;
    lister.list(folder);
  }
  return lister.take();
}

}  // namespace quillet
