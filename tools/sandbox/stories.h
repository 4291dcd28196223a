// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// A story of the store's editors about an app.
struct SampleStory {
  std::int64_t id = 0;
  std::int64_t appId = 0;
  std::string label;
  std::string title;
  std::string tagline;
  std::string background;  ///< "1a2b3c"
};

/// Those who have a badge have stories, others now and then.
[[nodiscard]] std::vector<SampleStory> storiesAbout(const SampleApp& app);

[[nodiscard]] std::optional<SampleStory> storyWithId(const SampleStore& store, std::int64_t id);

}  // namespace quillet::sandbox
