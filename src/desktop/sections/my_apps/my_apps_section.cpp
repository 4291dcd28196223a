// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/my_apps/my_apps_section.h"

#include "desktop/lists/list_section.h"
#include "desktop/sections/my_apps/my_apps_rows.h"
#include "system/settings_keys.h"

namespace quillet {

std::unique_ptr<Section> makeMyApps(const ViewWorld& world) {
  const ListSectionRow row{
      SectionId::myApps,
      QT_TRANSLATE_NOOP("Sections", "My Apps"),
      QT_TRANSLATE_NOOP("Sections", "Find in My Apps"),
      myAppsTable(),
      [](const Place& /*place*/, const ViewWorld& from) { return myAppsSource(rowContext(from)); },
      {std::string(kSlowingAfterMonths.key), std::string(kStaleAfterMonths.key),
       std::string(kAbandonedAfterMonths.key)},
      nullptr,
      {QT_TRANSLATE_NOOP("Sections", "Remove from My Apps"),
       QT_TRANSLATE_NOOP("Sections", "%n apps"),
       [](const Place& /*place*/, const std::vector<RowKey>& rows) {
         return disowning(appsOf(rows));
       }}};
  return std::make_unique<ListSection>(row, world);
}

}  // namespace quillet
