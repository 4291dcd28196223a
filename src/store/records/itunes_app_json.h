// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>
#include <vector>

#include "base/json_reader.h"
#include "base/json_writer.h"
#include "store/records/itunes_app.h"

namespace quillet {

/// How much of a record is kept.
enum class AppDetail {
  page,     ///< everything
  listing,  ///< all but what only an app's own page shows: long texts, pictures, devices, languages
};

/// What a search or lookup answer says.
struct StoreAnswer {
  std::vector<ITunesApp> apps;       ///< in its order
  std::vector<std::int64_t> unread;  ///< IDs of apps that could not be read; 0 for each without one
};

/// An element that is no app (a developer's own record) is left out; one without ID or name, or
/// with a value of the wrong type, is `unread`. Throws DecodingError when the answer is no JSON
/// object with a "results" list, and when none of its apps can be read.
[[nodiscard]] StoreAnswer decodeStoreAnswer(const std::string& body,
                                            AppDetail detail = AppDetail::page);

/// Its apps alone.
[[nodiscard]] std::vector<ITunesApp> decodeSearchResponse(const std::string& body,
                                                          AppDetail detail = AppDetail::page);

/// One app record. Throws DecodingError when it is none.
[[nodiscard]] ITunesApp decodeApp(JsonElement element, AppDetail detail = AppDetail::page);

/// Writes the record so that decodeApp() reads it back equal, but for fractions of a second.
void writeApp(JsonWriter& writer, const ITunesApp& app);

}  // namespace quillet
