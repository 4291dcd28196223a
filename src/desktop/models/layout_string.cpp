// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/layout_string.h"

#include <algorithm>

#include "base/text.h"

namespace quillet {

namespace {

using Choices = std::vector<BlockChoice>;

Choices::iterator placeOf(Choices& choices, std::string_view id) {
  return std::ranges::find(choices, id, &BlockChoice::id);
}

void addWritten(Choices& choices, std::string_view word) {
  const bool isShown = !word.starts_with('-');
  const std::string id(trimmed(isShown ? word : word.substr(1)));
  if (!id.empty() && placeOf(choices, id) == choices.end()) choices.push_back({id, isShown});
}

Choices usualChoices(std::span<const std::string_view> usual) {
  Choices choices;
  for (const std::string_view id : usual) choices.push_back({std::string(id)});
  return choices;
}

}  // namespace

std::vector<BlockChoice> readBlockChoices(std::string_view text,
                                          std::span<const std::string_view> usual) {
  Choices choices;
  for (const std::string_view word : split(text, ',')) addWritten(choices, trimmed(word));
  std::string_view before;
  for (const std::string_view id : usual) {
    if (placeOf(choices, id) == choices.end()) {
      const auto last = placeOf(choices, before);
      choices.insert(last == choices.end() ? choices.begin() : std::next(last), {std::string(id)});
    }
    before = id;
  }
  return choices;
}

std::string blockChoicesText(const std::vector<BlockChoice>& choices,
                             std::span<const std::string_view> usual) {
  if (choices == usualChoices(usual)) return {};
  std::string text;
  for (const BlockChoice& choice : choices) {
    if (!text.empty()) text += ',';
    if (!choice.isShown) text += '-';
    text += choice.id;
  }
  return text;
}

}  // namespace quillet
