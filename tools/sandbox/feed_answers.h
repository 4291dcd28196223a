// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/json_writer.h"
#include "sandbox/request.h"
#include "sandbox/sample_app.h"
#include "sandbox/storefronts.h"

namespace quillet::sandbox {

// What the feeds of the search service have in common.

/// The settings in a feed's path, as "genre=6007/limit=10/json": names in lower case to values. A
/// part without a value counts under its own name.
[[nodiscard]] std::map<std::string, std::string> feedSettings(std::string_view path);

/// A member whose value stands under "label", as nearly all of a feed's do.
void writeLabel(JsonWriter& json, std::string_view name, std::string_view text);

/// An app as an entry of a feed.
void writeAppEntry(JsonWriter& json, const SampleApp& app, Storefront storefront,
                   std::string_view pictureHost);

/// A feed in the service's way: its entries in a list, a single one bare, and no "entry" when
/// there is none. Write so many entries between the two calls.
class Feed {
 public:
  Feed(std::size_t entries, std::string title, Instant updated);

  [[nodiscard]] JsonWriter& json() { return json_; }
  /// An address under the feed's links: "last", "next".
  void addLink(std::string rel, std::string href);
  [[nodiscard]] Answer take(std::string_view path);

 private:
  JsonWriter json_;
  std::size_t entries_;
  std::string title_;
  Instant updated_;
  std::vector<std::pair<std::string, std::string>> links_;
};

/// A time with the offset that the service lives by: "2026-11-20T17:00:00-07:00".
[[nodiscard]] std::string withOffset(Instant instant);

/// A refusal in one line of plain text.
[[nodiscard]] Answer plainRefusal(int status, std::string text);

}  // namespace quillet::sandbox
