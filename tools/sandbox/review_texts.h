// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <span>
#include <string>
#include <string_view>

#include "sandbox/random.h"
#include "sandbox/storefronts.h"

namespace quillet::sandbox {

/// How a customer feels: up to two stars, three, or more.
enum class Mood { bad, fair, good };

[[nodiscard]] Mood moodOf(int stars);

/// What reviews are made of; "{}" in a sentence stands for the app's name.
struct ReviewWords {
  std::span<const std::string_view> titles;
  std::span<const std::string_view> sentences;
};

/// In the storefront's main language.
[[nodiscard]] ReviewWords reviewWords(Storefront storefront, Mood mood);

/// What a maker answers, in English whatever the storefront.
[[nodiscard]] std::string replyText(int stars, std::string_view maker, Random& random);

}  // namespace quillet::sandbox
