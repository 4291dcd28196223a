// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/shown_command.h"

#include <algorithm>

#include "desktop/models/list_command.h"

namespace quillet {

ShownCommand::ShownCommand(const ViewWorld& world, const Guide& guide, const CountsFeed& counts)
    : world_(world), guide_(guide), counts_(counts) {}

std::optional<QString> ShownCommand::text() const {
  const Place& here = guide_.here();
  ListNames names{world_.storefront(), {}, {}, {}};
  if (here.section == SectionId::compare) {
    names.compared = world_.compared.apps();
    names.comparedIn = world_.compared.storefront();
  }
  if (const auto* key = std::get_if<RowId>(&here.what)) {
    const auto& all = counts_.counts().collections;
    const auto found = std::ranges::find(all, *key, &CollectionCount::key);
    if (found == all.end()) return std::nullopt;
    names.collection = found->name;
  }
  return listCommand(here, names);
}

}  // namespace quillet
