// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <span>
#include <string_view>

namespace quillet::sandbox {

/// What apps of one category call themselves.
struct GenreWords {
  int genre;
  std::span<const std::string_view> kinds;
};

[[nodiscard]] std::span<const GenreWords> genreWords();

[[nodiscard]] std::span<const std::string_view> adjectives();
/// Parts of invented words: an opening, a middle and an end.
[[nodiscard]] std::span<const std::string_view> openings();
[[nodiscard]] std::span<const std::string_view> middles();
[[nodiscard]] std::span<const std::string_view> endings();
/// What is written behind a company's name.
[[nodiscard]] std::span<const std::string_view> companyForms();
[[nodiscard]] std::span<const std::string_view> givenNames();
[[nodiscard]] std::span<const std::string_view> familyEndings();
[[nodiscard]] std::span<const std::string_view> subscriptionNames();
[[nodiscard]] std::span<const std::string_view> unlockNames();
[[nodiscard]] std::span<const std::string_view> extraNames();

}  // namespace quillet::sandbox
