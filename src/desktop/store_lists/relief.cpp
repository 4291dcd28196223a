// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/relief.h"

#include <QCoreApplication>
#include <algorithm>

#include "analysis/filter_labels.h"
#include "desktop/models/row_parts.h"
#include "desktop/store_lists/store_feed.h"

namespace quillet {

namespace {
QString tr(const char* text) { return QCoreApplication::translate("NothingFound", text); }
}  // namespace

std::optional<Relief> reliefOf(const StoreFeed& feed, const AppFilters& filters) {
  const std::vector<SetFilter> set = setFilters(filters);
  std::vector<AppFilters> choices;
  for (const SetFilter& each : set) choices.push_back(each.others);
  const auto counts = feed.countsOf(choices);
  const auto most = std::ranges::max_element(counts);
  if (most == counts.end() || most->value_or(0) == 0) return {};
  const SetFilter& filter = set[static_cast<std::size_t>(most - counts.begin())];
  const QString label = plainLine(filter.label);
  const QString text = **most == 1 ? tr("1 app matches without “%1”").arg(label)
                                   : tr("%2 apps match without “%1”").arg(label).arg(**most);
  return Relief{text, filter.others};
}

}  // namespace quillet
