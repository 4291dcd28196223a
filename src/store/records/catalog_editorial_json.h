// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>
#include <vector>

#include "store/records/editorial_story.h"

namespace quillet {

/// The stories of the answer, in its order; one without an ID is left out. Throws DecodingError
/// when `body` is no catalog answer.
[[nodiscard]] std::vector<EditorialStory> decodeStories(const std::string& body);

}  // namespace quillet
