// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/word_index.h"

#include <algorithm>

#include "base/text.h"

namespace quillet::sandbox {

namespace {

constexpr std::size_t kMostWords = 8;      // one bit each
constexpr std::size_t kShortestStart = 3;  // bytes; "in" must not find "invoice"

/// The letters of U+00C0 to U+00FF without their accents; '?' is no letter.
constexpr std::string_view kWithoutAccent =
    "aaaaaaaceeeeiiiidnooooo?ouuuuytsaaaaaaaceeeeiiiidnooooo?ouuuuyty";

bool isAsciiLetterOrDigit(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

/// General punctuation, arrows, and the CJK comma and full stop part words like blanks do.
bool isSeparator(std::string_view sequence) {
  const std::string_view block = sequence.substr(0, 2);
  return block == "\xE2\x80" || block == "\xC2\xA0" || block == "\xC2\xAB" || block == "\xC2\xBB" ||
         sequence == "\xE3\x80\x80" || sequence == "\xE3\x80\x81" || sequence == "\xE3\x80\x82";
}

/// The bytes that the sequence adds to a word; empty where it ends one.
std::string folded(std::string_view sequence) {
  if (sequence.size() == 1) return isAsciiLetterOrDigit(sequence[0]) ? lowerAscii(sequence) : "";
  if (sequence[0] == '\xC3') {
    return std::string(1, kWithoutAccent[static_cast<unsigned char>(sequence[1]) - 0x80]);
  }
  return isSeparator(sequence) ? "" : std::string(sequence);
}

std::string singular(std::string word) {
  const auto endsWith = [&](std::string_view end) { return word.ends_with(end); };
  if (word.size() > 4 && endsWith("ies")) {
    word.replace(word.size() - 3, 3, "y");
  } else if (word.size() > 3 && endsWith("s") && !endsWith("ss")) {
    word.pop_back();
  }
  return word;
}

}  // namespace

std::vector<std::string> searchWords(std::string_view text) {
  std::vector<std::string> words;
  std::string word;
  const auto endWord = [&] {
    if (!word.empty()) words.push_back(singular(std::move(word)));
    word.clear();
  };
  while (!text.empty()) {
    const std::size_t length = std::max<std::size_t>(utf8SequenceLength(text), 1);
    const std::string letters = folded(text.substr(0, length));
    if (letters.empty()) endWord();
    word += letters;
    text.remove_prefix(length);
  }
  endWord();
  return words;
}

void WordIndex::add(std::uint32_t thing, std::string_view text, Field field) {
  bool isFirst = true;
  for (std::string& word : searchWords(text)) {
    const auto [entry, isNew] =
        ids_.try_emplace(std::move(word), static_cast<std::uint32_t>(places_.size()));
    if (isNew) places_.emplace_back();
    places_[entry->second].push_back({thing, field, isFirst});
    isFirst = false;
  }
}

void WordIndex::finish() {
  vocabulary_.assign(ids_.begin(), ids_.end());
  std::ranges::sort(vocabulary_);
}

std::vector<const WordIndex::Places*> WordIndex::placesOf(std::string_view word) const {
  std::vector<const Places*> found;
  auto entry =
      std::ranges::lower_bound(vocabulary_, word, {}, [](const auto& e) { return e.first; });
  const auto matches = [&](std::string_view candidate) {
    return word.size() < kShortestStart ? candidate == word : candidate.starts_with(word);
  };
  for (; entry != vocabulary_.end() && matches(entry->first); ++entry)
    found.push_back(&places_[entry->second]);
  return found;
}

void WordIndex::mark(std::size_t word, const Places& places, Marks& marks) {
  const auto bit = static_cast<std::uint8_t>(1U << word);
  for (const Place& place : places) {
    marks.anywhere[place.thing] |= bit;
    if (place.field == Field::other) continue;
    marks.inName[place.thing] |= bit;
    if (place.isFirst && word == 0) marks.startsName[place.thing] = 1;
  }
}

std::vector<Match> WordIndex::matches(std::string_view query, std::uint32_t things) const {
  std::vector<std::string> words = searchWords(query);
  words.resize(std::min(words.size(), kMostWords));
  std::vector<Match> result(things, Match::none);
  if (words.empty()) return result;
  Marks marks(things);
  for (std::size_t i = 0; i < words.size(); ++i) {
    for (const Places* places : placesOf(words[i])) mark(i, *places, marks);
  }
  const auto all = static_cast<std::uint8_t>((1U << words.size()) - 1);
  for (std::uint32_t thing = 0; thing < things; ++thing) {
    if (marks.anywhere[thing] != all) continue;
    const Match inName = marks.startsName[thing] ? Match::nameStart : Match::name;
    result[thing] = marks.inName[thing] == all ? inName : Match::somewhere;
  }
  return result;
}

}  // namespace quillet::sandbox
