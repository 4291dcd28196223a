// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "sandbox/random.h"
#include "sandbox/storefronts.h"

namespace quillet::sandbox {

/// How a customer feels: up to two stars, three, or more.
enum class Mood { bad, fair, good };

[[nodiscard]] Mood moodOf(int stars);

/// What reviews are made of; "{}" in a sentence stands for the app's name.
struct ReviewWords {
  std::vector<std::string> titles;
  std::vector<std::string> sentences;
};

struct ReviewTexts {
  /// By storefront, in its main language, then by mood.
  std::array<std::array<ReviewWords, 3>, kStorefrontCount> words;
  // What makers answer, in English whatever the storefront.
  std::vector<std::string> thanks;
  std::vector<std::string> apologies;
};

/// Reads data/reviews.json. Throws DecodingError, which says where it is wrong.
[[nodiscard]] ReviewTexts readReviewTexts(const std::string& json);

[[nodiscard]] const ReviewWords& reviewWords(Storefront storefront, Mood mood);

/// What a maker answers.
[[nodiscard]] std::string replyText(int stars, std::string_view maker, Random& random);

}  // namespace quillet::sandbox
