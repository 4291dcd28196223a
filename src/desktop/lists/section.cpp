// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/section.h"

#include <map>
#include <set>

#include "desktop/models/row_filter_model.h"

namespace quillet {

namespace {

/// The names of apps as the list shows them.
std::map<AppKey, QString> namesOf(const std::vector<AppKey>& apps, const RowFilterModel* rows) {
  const std::set<AppKey> wanted(apps.begin(), apps.end());
  std::map<AppKey, QString> names;
  for (int i = 0; rows != nullptr && i < rows->rowCount() && names.size() < wanted.size(); ++i) {
    const AppRow& row = rows->at(i);
    if (wanted.contains(row.key.app)) names.emplace(row.key.app, row.name);
  }
  return names;
}

}  // namespace

std::vector<NamedKey> Section::named() const {
  const std::vector<AppKey> apps = chosen();
  const std::map<AppKey, QString> names = namesOf(apps, rows());
  std::vector<NamedKey> named;
  for (const AppKey& app : apps) {
    const auto name = names.find(app);
    named.push_back({app, name == names.end() ? QString() : name->second});
  }
  return named;
}

RowContext rowContext(const ViewWorld& world) {
  return {world.clock.now(), world.zone, world.locale, readMaintenanceThresholds(world.settings)};
}

}  // namespace quillet
