// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "fuzzing.h"
#include "scan/bundle_lists.h"

using namespace quillet;

namespace {

void check(const std::optional<std::string>& text) {
  if (!text) return;
  require(!text->empty() && text->size() <= 1024, "a text says something, and not too much");
  require(isValidUtf8(*text) && printable(*text) == *text, "a text is printable");
}

void checkIdentifier(const std::optional<std::string>& identifier) {
  check(identifier);
  require(!identifier || identifier->find_first_of(",&/ %") == std::string::npos,
          "an identifier can stand in an address");
}

}  // namespace

void quillet::tryInput(std::string_view input) {
  readOrRefuse([&] {
    const BundleInfo info = readBundleInfo(input);
    checkIdentifier(info.bundleId);
    check(info.name);
    check(info.version);
    check(info.minimumSystem);
    require(!info.executable || (info.executable->find('/') == std::string::npos &&
                                 *info.executable != "." && *info.executable != ".."),
            "an executable lies beside the others");
  });
  readOrRefuse([&] {
    const StoreNote note = readStoreNote(input);
    require(!note.trackId || *note.trackId > 0, "a track ID is positive");
    checkIdentifier(note.bundleId);
    check(note.name);
    check(note.version);
  });
}
