// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/words.h"

#include <algorithm>
#include <array>
#include <utility>

#include "sandbox/data_files.h"
#include "sandbox/data_object.h"

namespace quillet::sandbox {

namespace {

constexpr auto kLists =
    std::to_array<std::pair<std::string_view, std::vector<std::string> Words::*>>({
        {"adjectives", &Words::adjectives},
        {"openings", &Words::openings},
        {"middles", &Words::middles},
        {"endings", &Words::endings},
        {"companyForms", &Words::companyForms},
        {"givenNames", &Words::givenNames},
        {"familyEndings", &Words::familyEndings},
        {"subscriptionNames", &Words::subscriptionNames},
        {"unlockNames", &Words::unlockNames},
        {"extraNames", &Words::extraNames},
        {"features", &Words::features},
        {"releaseNotes", &Words::releaseNotes},
        {"storyLabels", &Words::storyLabels},
        {"storyTitles", &Words::storyTitles},
        {"storyTaglines", &Words::storyTaglines},
    });

Genre genreIn(JsonElement element) {
  DataObject object(element, "A genre");
  Genre genre{object.needed<int>("id"), object.needed<std::string>("name"), object.texts("kinds")};
  object.requireNoOthers();
  return genre;
}

}  // namespace

Words readWords(const std::string& json) {
  const JsonDocument document(json);
  DataObject file(document.root(), "words.json");
  Words words;
  for (const JsonElement genre : file.list("genres")) words.genres.push_back(genreIn(genre));
  if (words.genres.empty()) file.fail("there are no genres");
  for (const auto& [key, list] : kLists) words.*list = file.texts(key);
  file.requireNoOthers();
  return words;
}

const Words& words() {
  static const Words words = readWords(data::words());
  return words;
}

std::string_view genreName(int id) {
  const auto genre = std::ranges::find(words().genres, id, &Genre::id);
  return genre == words().genres.end() ? std::string_view() : genre->name;
}

std::string filledIn(std::string_view text, std::string_view name) {
  constexpr std::string_view kPlace = "{}";
  std::string filled(text);
  for (std::size_t at = filled.find(kPlace); at != std::string::npos;
       at = filled.find(kPlace, at + name.size()))
    filled.replace(at, kPlace.size(), name);
  return filled;
}

}  // namespace quillet::sandbox
