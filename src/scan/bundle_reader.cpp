// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "scan/bundle_reader.h"

#include <algorithm>
#include <limits>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "base/errors.h"
#include "base/plist_scalars.h"
#include "base/text.h"
#include "scan/bundle_lists.h"
#include "scan/mach_o.h"

namespace quillet {
namespace {

/// The folder's name without its ending; it always has one.
std::string nameOfFolder(const BundlePlace& place) {
  const std::string& name = place.names.back();
  const std::string shown = printable(name.substr(0, name.rfind('.')));
  const std::string_view said = trimmed(shown);
  return said.empty() ? printable(name) : std::string(said);
}

/// A list of the bundle's own; too long a one is read far enough to be refused.
std::optional<std::string> listIn(const OpenFolder& folder, const std::string& name) {
  return folder.start(name, kLargestPlist + 1);
}

std::optional<OpenFolder> firstAppIn(OpenFolder& wrapper) {
  std::vector<std::string> names;
  while (auto entry = wrapper.next()) {
    if (entry->isFolder && lowerAscii(entry->name).ends_with(".app")) {
      names.push_back(std::move(entry->name));
    }
  }
  const auto first = std::min_element(names.begin(), names.end());
  return first == names.end() ? std::nullopt : wrapper.folder(*first);
}

/// Does what may fail on a damaged disk or file; tells why it did.
template <typename Read>
std::optional<BundleFault> faultOf(const std::string& whose, Read read) {
  const std::string complaint = whose + " could not be read: ";
  try {
    read();
  } catch (const DecodingError& error) {
    return BundleFault{BundleFaultKind::unreadableList, complaint + error.what() + '.'};
  } catch (const std::system_error& error) {
    return BundleFault{BundleFaultKind::noList, complaint + error.code().message() + '.'};
  }
  return std::nullopt;
}

/// The same where what cannot be read is as good as absent.
template <typename Read>
void ifReadable(Read read) {
  static_cast<void>(faultOf({}, std::move(read)));
}

/// What the app's own list says, to the bundle; returns what its executable is called there.
std::optional<std::string> takeInfo(const OpenFolder& folder, InstalledBundle& bundle) {
  const auto bytes = listIn(folder, "Info.plist");
  if (!bytes) return std::nullopt;
  BundleInfo info = readBundleInfo(*bytes);
  bundle.name = std::move(info.name).value_or("");
  bundle.bundleId = std::move(info.bundleId);
  bundle.version = std::move(info.version);
  bundle.minimumSystem = std::move(info.minimumSystem);
  bundle.fault = {BundleFaultKind::noIdentifier, "Its Info.plist names no identifier."};
  return std::move(info.executable);
}

/// `programs`: where the executables of an app lie whose list is in `folder`.
void readApp(const OpenFolder& folder, const OpenFolder* programs, InstalledBundle& bundle) {
  std::optional<std::string> executable;
  const auto read = [&] { executable = takeInfo(folder, bundle); };
  if (auto fault = faultOf("Its Info.plist", read)) bundle.fault = std::move(fault);
  if (programs == nullptr || !executable) return;
  ifReadable([&] {
    const auto head = programs->start(*executable, kMachOHead);
    if (head) bundle.architectures = architecturesOf(*head);
  });
}

void readMacApp(const OpenFolder& contents, InstalledBundle& bundle) {
  std::optional<OpenFolder> programs;
  ifReadable([&] { programs = contents.folder("MacOS"); });
  readApp(contents, programs ? &*programs : nullptr, bundle);
  ifReadable([&] {
    const auto receipts = contents.folder("_MASReceipt");
    bundle.hasReceipt = receipts && receipts->hasFile("receipt");
  });
}

/// The store's note tells what the app itself does not.
void takeNote(StoreNote note, InstalledBundle& bundle) {
  bundle.hasReceipt = note.trackId.has_value();
  bundle.trackId = note.trackId;
  if (!bundle.bundleId) bundle.bundleId = std::move(note.bundleId);
  if (!bundle.version) bundle.version = std::move(note.version);
  if (bundle.name.empty()) bundle.name = std::move(note.name).value_or("");
}

void readWrappedApp(OpenFolder& wrapper, InstalledBundle& bundle) {
  bundle.kind = BundleKind::wrapped;
  ifReadable([&] {
    const auto app = firstAppIn(wrapper);
    if (app) readApp(*app, &*app, bundle);
  });
  ifReadable([&] {
    const auto bytes = listIn(wrapper, "iTunesMetadata.plist");
    if (bytes) takeNote(readStoreNote(*bytes), bundle);
  });
}

void readFolder(const OpenFolder& folder, InstalledBundle& bundle) {
  if (const auto contents = folder.folder("Contents")) {
    readMacApp(*contents, bundle);
  } else if (auto wrapper = folder.folder("Wrapper")) {
    readWrappedApp(*wrapper, bundle);
  }
}

/// Adds up what lies in a folder and below.
class Measure {
 public:
  explicit Measure(const std::function<bool()>& stopped) : stopped_(stopped) {}

  /// False where it did not come to an end.
  [[nodiscard]] bool add(OpenFolder& folder, int depth = 0) {
    // Each level holds a descriptor open; no app nests as deep.
    constexpr int kDeepest = 64;
    if (depth == kDeepest || (stopped_ && stopped_())) return false;
    while (const auto entry = folder.next()) {
      if (!entry->isFolder) {
        addFile(folder, entry->name);
      } else if (auto inner = folder.folder(entry->name); inner && !add(*inner, depth + 1)) {
        return false;
      }
    }
    return true;
  }

  /// Never negative, whatever sizes a damaged disk names.
  [[nodiscard]] std::int64_t bytes() const { return bytes_; }

 private:
  void addFile(const OpenFolder& folder, const std::string& name) {
    const auto status = folder.status(name);
    if (!status || !S_ISREG(status->st_mode)) return;
    const std::int64_t room = std::numeric_limits<std::int64_t>::max() - bytes_;
    bytes_ += std::clamp<std::int64_t>(status->st_size, 0, room);
  }

  const std::function<bool()>& stopped_;
  std::int64_t bytes_ = 0;
};

}  // namespace

InstalledBundle readBundle(const BundlePlace& place) {
  InstalledBundle bundle;
  bundle.path = place.path();
  bundle.fault = {BundleFaultKind::noList, "It has no Info.plist."};
  auto fault = faultOf("Its folder", [&] {
    if (const auto folder = place.open()) readFolder(*folder, bundle);
  });
  if (fault) bundle.fault = std::move(fault);
  if (bundle.bundleId || bundle.trackId) bundle.fault.reset();
  if (bundle.name.empty()) bundle.name = nameOfFolder(place);
  return bundle;
}

std::optional<std::int64_t> sizeOfBundle(const BundlePlace& place,
                                         const std::function<bool()>& stopped) {
  Measure measure(stopped);
  bool isWhole = false;
  ifReadable([&] {
    auto folder = place.open();
    isWhole = folder && measure.add(*folder);
  });
  return isWhole ? std::optional(measure.bytes()) : std::nullopt;
}

}  // namespace quillet
