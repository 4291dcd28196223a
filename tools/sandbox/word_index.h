// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillet::sandbox {

/// The words of a text as they are compared: lower case, without accents, in the singular.
[[nodiscard]] std::vector<std::string> searchWords(std::string_view text);

/// How well a thing answers a query, from none to best.
enum class Match : std::uint8_t {
  none,
  somewhere,  ///< every word of the query is found
  name,       ///< in the name
  nameStart,  ///< and the name begins with the first of them
};

/// Finds things by the words in their texts.
class WordIndex {
 public:
  enum class Field { other, name };

  /// Adds a thing's text.
  void add(std::uint32_t thing, std::string_view text, Field field);

  /// To be called once, after the last text and before the first search.
  void finish();

  /// One match per thing below `things`. A word of three letters and more stands for every word
  /// that begins with it, too. Only the query's first eight words count; a query without a word
  /// matches nothing.
  [[nodiscard]] std::vector<Match> matches(std::string_view query, std::uint32_t things) const;

 private:
  struct Place {
    std::uint32_t thing;
    Field field;
    bool isFirst;  ///< of its text
  };
  using Places = std::vector<Place>;

  /// Which words of a query each thing has, a bit for each.
  struct Marks {
    explicit Marks(std::uint32_t things) : anywhere(things), inName(things), startsName(things) {}

    std::vector<std::uint8_t> anywhere;
    std::vector<std::uint8_t> inName;
    std::vector<std::uint8_t> startsName;  ///< whether its name begins with the first one
  };

  static void mark(std::size_t word, const Places& places, Marks& marks);
  [[nodiscard]] std::vector<const Places*> placesOf(std::string_view word) const;

  std::unordered_map<std::string, std::uint32_t> ids_;
  std::vector<Places> places_;                                          // by word id
  std::vector<std::pair<std::string_view, std::uint32_t>> vocabulary_;  // sorted; views into ids_
};

}  // namespace quillet::sandbox
