// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/selector_choices.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>

#include "desktop/models/storefronts.h"
#include "store/records/app_genre.h"
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

std::vector<SelectorChoice> chartChoices(ChartType chosen, Platform platform) {
  constexpr std::array kTexts{QT_TRANSLATE_NOOP("Charts", "Top Free"),
                              QT_TRANSLATE_NOOP("Charts", "Top Paid"),
                              QT_TRANSLATE_NOOP("Charts", "Top Grossing")};
  std::vector<SelectorChoice> choices;
  for (const auto& [type, word] : kChartTypeWords) {
    const char* const text = kTexts.at(static_cast<std::size_t>(type));
    SelectorChoice choice{std::string(word), QCoreApplication::translate("Charts", text),
                          type == chosen};
    if (!isPublished(type, platform))
      choice.whyNot = QCoreApplication::translate("Charts", std::string(kNoMacGrossing).c_str());
    choices.push_back(std::move(choice));
  }
  return choices;
}

std::vector<SelectorChoice> chartCategoryChoices(std::optional<int> chosen) {
  std::vector<SelectorChoice> choices{
      {{}, QCoreApplication::translate("Charts", "All Categories"), !chosen}};
  for (const AppGenre& genre : kAppGenres) {
    choices.push_back({std::to_string(genre.id), QString::fromStdString(std::string(genre.name)),
                       chosen == genre.id, choices.size() == 1});
  }
  return choices;
}

}  // namespace quillet
