// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/review_texts.h"

#include <fmt/format.h>

#include "base/enum_index.h"
#include "base/enum_table.h"
#include "sandbox/data_files.h"
#include "sandbox/data_object.h"

namespace quillet::sandbox {

namespace {

constexpr EnumTable<Mood, 3> kMoodWords{{
    {Mood::bad, "bad"},
    {Mood::fair, "fair"},
    {Mood::good, "good"},
}};
static_assert(isComplete(kMoodWords, Mood::good));

ReviewWords wordsIn(JsonElement element, const std::string& name) {
  DataObject object(element, name);
  ReviewWords words{object.texts("titles"), object.texts("sentences")};
  object.requireNoOthers();
  return words;
}

void readLanguage(JsonElement element, ReviewTexts& texts) {
  DataObject object(element, "A language of reviews");
  const auto name = object.needed<std::string>("language");
  std::array<ReviewWords, 3> words;
  for (const auto& [mood, word] : kMoodWords)
    words[indexOf(mood)] = wordsIn(object.element(word), name);
  const auto storefronts = object.needed<StorefrontSet>("storefronts");
  for (std::size_t i = 0; i < kStorefrontCount; ++i) {
    if (storefronts.test(i)) texts.words[i] = words;
  }
  object.requireNoOthers();
}

const ReviewTexts& texts() {
  static const ReviewTexts texts = readReviewTexts(data::reviews());
  return texts;
}

}  // namespace

Mood moodOf(int stars) {
  if (stars == 3) return Mood::fair;
  return stars < 3 ? Mood::bad : Mood::good;
}

ReviewTexts readReviewTexts(const std::string& json) {
  const JsonDocument document(json);
  DataObject file(document.root(), "reviews.json");
  ReviewTexts texts;
  for (const JsonElement language : file.list("languages")) readLanguage(language, texts);
  for (const auto& words : texts.words) {
    if (words.front().titles.empty()) file.fail("a storefront has no language");
  }
  texts.thanks = file.texts("thanks");
  texts.apologies = file.texts("apologies");
  file.requireNoOthers();
  return texts;
}

const ReviewWords& reviewWords(Storefront storefront, Mood mood) {
  return texts().words[indexOf(storefront)][indexOf(mood)];
}

std::string replyText(int stars, std::string_view maker, Random& random) {
  const std::string& text = random.pick(stars < 4 ? texts().apologies : texts().thanks);
  return fmt::format("{}\n\n{}", text, maker);
}

}  // namespace quillet::sandbox
