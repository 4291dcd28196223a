// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/word_index.h"

#include <gtest/gtest.h>

namespace quillet::sandbox {
namespace {

struct MatchCase {
  const char* situation;
  const char* name;
  const char* other;
  const char* query;
  Match expected;
};

TEST(WordIndex, matchesWords) {
  const MatchCase cases[] = {
      {"the name's first word comes second", "Marrow Text Pad", "", "pad marrow", Match::name},
      {"one word in the name, one beside it", "Marrow Pad", "Books", "marrow book",
       Match::somewhere},
      {"one word is nowhere", "Marrow Pad", "Books", "marrow cook", Match::none},
      {"end of a word", "Photography", "", "graphy", Match::none},
      {"plural asked, singular there", "Note", "", "notes", Match::nameStart},
      {"irregular plural", "Library", "", "libraries", Match::nameStart},
      {"double s is no plural", "Chess", "", "ches", Match::nameStart},
      {"two letters stand for no longer word", "Invoice", "", "in", Match::none},
      {"accents and case", "Écrire Déjà", "", "ecrire DEJA", Match::nameStart},
      {"punctuation parts words", "Feed–Reader: R.S.S", "", "reader feed", Match::name},
      {"another script by its begin", "写真の引き出し", "", "写真", Match::nameStart},
      {"bytes that are no text", "Bad\xff\xfeName", "", "name", Match::name},
      {"a ninth word no longer counts", "a b c d e f g h", "", "a b c d e f g h zebra",
       Match::nameStart},
  };
  for (const MatchCase& c : cases) {
    WordIndex index;
    index.add(0, "Unrelated", WordIndex::Field::name);
    index.add(1, c.name, WordIndex::Field::name);
    index.add(1, c.other, WordIndex::Field::other);
    index.finish();
    const std::vector<Match> expected{Match::none, c.expected};
    EXPECT_EQ(index.matches(c.query, 2), expected) << c.situation;
  }
}

}  // namespace
}  // namespace quillet::sandbox
