// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/alerts/alerts_section.h"

#include "desktop/lists/list_section.h"
#include "desktop/sections/alerts/alerts_rows.h"

namespace quillet {

std::unique_ptr<Section> makeAlerts(const ViewWorld& world) {
  const ListSectionRow row{
      SectionId::alerts,
      QT_TRANSLATE_NOOP("Sections", "Alerts"),
      QT_TRANSLATE_NOOP("Sections", "Find in Alerts"),
      alertsTable(),
      [](const Place& /*place*/, const ViewWorld& from) { return alertsSource(rowContext(from)); },
      {},
      nullptr,
      {QT_TRANSLATE_NOOP("Sections", "Remove from Alerts"),
       QT_TRANSLATE_NOOP("Sections", "%n alerts"),
       [](const Place& /*place*/, const std::vector<RowKey>& rows) {
         return removingAlerts(idsOf(rows));
       }},
      {QT_TRANSLATE_NOOP("Sections", "%n alerts"), markingAlerts},
      true};
  return std::make_unique<ListSection>(row, world);
}

}  // namespace quillet
