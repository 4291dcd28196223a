// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/selector_choices.h"

#include <algorithm>

#include "desktop/models/storefronts.h"
#include "store/records/storefronts.h"

namespace quillet {

std::vector<SelectorChoice> platformChoices(Platform chosen) {
  std::vector<SelectorChoice> choices;
  for (const auto& [platform, word] : kPlatformWords)
    choices.push_back({std::string(word), platformText(platform), platform == chosen});
  return choices;
}

std::vector<SelectorChoice> storefrontChoices(const std::string& chosen) {
  std::vector<SelectorChoice> choices;
  for (const Storefront& each : allStorefronts()) {
    const bool isFirstOfOthers = choices.size() == kTrackedStorefronts.size();
    choices.push_back({each.code, each.name + u'\t' + QString::fromStdString(each.code),
                       each.code == chosen, isFirstOfOthers});
  }
  return choices;
}

std::vector<SelectorChoice> categoryChoices(const FilterPanelState& state) {
  std::vector<SelectorChoice> choices;
  const std::vector<FilterGroup> groups = filterGroups(state);
  const auto group = std::ranges::find(groups, FilterField::category, &FilterGroup::field);
  for (const FilterChoice& each : group->choices)
    choices.push_back({each.filters.genre.value_or(""), each.text, each.isChosen});
  return choices;
}

}  // namespace quillet
