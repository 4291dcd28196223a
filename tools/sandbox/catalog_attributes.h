// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/json_writer.h"
#include "sandbox/records.h"
#include "sandbox/sample_app.h"

namespace quillet::sandbox {

/// An app's place in the chart of its category.
struct ChartPlace {
  std::string chart;  ///< "top-free"
  int genre = 0;
  std::size_t position = 1;
  std::string url;
};

/// What an app's attributes tell besides what they always tell.
struct MoreAttributes {
  bool hasVersionHistory = false;
  std::optional<ChartPlace> chartPlace;
};

/// The "attributes" of an app: what is said of it as a whole, and a block for each of its builds,
/// "ios" and "osx". What is said of a build alone stands in its block, for some apps beside it.
void writeAppAttributes(JsonWriter& json, const SampleApp& app, const RecordView& view,
                        const MoreAttributes& more);

/// The "artwork" member with an app's icon.
void writeIconTemplate(JsonWriter& json, std::int64_t appId, std::string_view pictureHost);

}  // namespace quillet::sandbox
