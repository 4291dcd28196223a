// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/history/history_section.h"

#include <QCoreApplication>

#include "desktop/lists/list_section.h"
#include "desktop/sections/history/history_rows.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

ListState remarkOf(const ViewWorld& world) {
  if (readSetting(world.settings, kKeepHistory)) return Ready{};
  return SwitchedOff{QCoreApplication::translate("Sections", "History is off.")};
}

}  // namespace

std::unique_ptr<Section> makeHistory(const ViewWorld& world) {
  const ListSectionRow row{
      SectionId::history,
      QT_TRANSLATE_NOOP("Sections", "History"),
      QT_TRANSLATE_NOOP("Sections", "Find in History"),
      historyTable(),
      [](const Place& /*place*/, const ViewWorld& from) { return historySource(rowContext(from)); },
      {std::string(kKeepHistory.key)},
      remarkOf,
      {QT_TRANSLATE_NOOP("Sections", "Remove from History"),
       QT_TRANSLATE_NOOP("Sections", "%n apps"),
       [](const Place& /*place*/, const std::vector<RowKey>& rows) {
         return forgettingViews(appsOf(rows));
       }}};
  return std::make_unique<ListSection>(row, world);
}

}  // namespace quillet
