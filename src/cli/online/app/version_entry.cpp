// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/app/version_entry.h"

#include "base/text.h"

namespace quillet {

void writeVersion(JsonWriter& writer, const VersionEntry& entry) {
  writer.beginObject();
  writer.member("releaseDate", entry.releaseDate);
  writer.member("releaseNotes", entry.releaseNotes);
  writer.memberUnlessEmpty("version", entry.version);
  writer.endObject();
}

std::string firstLineOf(const std::optional<std::string>& notes) {
  const std::string_view text = trimmed(notes ? std::string_view(*notes) : std::string_view());
  return printable(text.substr(0, text.find('\n')));
}

}  // namespace quillet
