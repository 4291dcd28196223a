// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillet::sandbox {

/// One of the store's categories, with Apple's number.
struct Genre {
  int id = 0;
  std::string name;
  std::vector<std::string> kinds;  ///< what its apps call themselves
};

/// What names and texts are made of. No list is empty.
struct Words {
  std::vector<Genre> genres;
  std::vector<std::string> adjectives;
  // Parts of invented words.
  std::vector<std::string> openings;
  std::vector<std::string> middles;
  std::vector<std::string> endings;
  std::vector<std::string> companyForms;  ///< what is written behind a company's name
  std::vector<std::string> givenNames;
  std::vector<std::string> familyEndings;
  std::vector<std::string> subscriptionNames;
  std::vector<std::string> unlockNames;
  std::vector<std::string> extraNames;
  std::vector<std::string> features;
  std::vector<std::string> releaseNotes;
  // Of stories; "{}" in a title stands for the app's name.
  std::vector<std::string> storyLabels;
  std::vector<std::string> storyTitles;
  std::vector<std::string> storyTaglines;
};

/// Reads data/words.json. Throws DecodingError, which says where it is wrong.
[[nodiscard]] Words readWords(const std::string& json);

/// Those of the store.
[[nodiscard]] const Words& words();

/// The category's name; empty for a number that no category has.
[[nodiscard]] std::string_view genreName(int id);

/// The text with `name` for each "{}".
[[nodiscard]] std::string filledIn(std::string_view text, std::string_view name);

}  // namespace quillet::sandbox
