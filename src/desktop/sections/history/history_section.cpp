// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/history/history_section.h"

#include "desktop/lists/list_section.h"
#include "desktop/sections/history/history_rows.h"

namespace quillet {

std::unique_ptr<Section> makeHistory(const ViewWorld& world) {
  const ListSectionRow row{SectionId::history, QT_TRANSLATE_NOOP("Sections", "History"),
                           QT_TRANSLATE_NOOP("Sections", "Find in History"), historyTable(),
                           [](const Place& /*place*/, const ViewWorld& from) {
                             return historySource(rowContext(from));
                           }};
  return std::make_unique<ListSection>(row, world);
}

}  // namespace quillet
