// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/watchlist/watchlist_section.h"

#include "desktop/lists/list_section.h"
#include "desktop/sections/watchlist/watchlist_rows.h"

namespace quillet {

std::unique_ptr<Section> makeWatchlist(const ViewWorld& world) {
  const ListSectionRow row{SectionId::watchlist,
                           QT_TRANSLATE_NOOP("Sections", "Watchlist"),
                           QT_TRANSLATE_NOOP("Sections", "Find in Watchlist"),
                           watchlistTable(),
                           [](const Place& /*place*/, const ViewWorld& from) {
                             return watchlistSource(rowContext(from));
                           },
                           {},
                           nullptr,
                           {QT_TRANSLATE_NOOP("Sections", "Remove from Watchlist"),
                            QT_TRANSLATE_NOOP("Sections", "%n apps"),
                            [](const Place& /*place*/, const std::vector<RowKey>& rows) {
                              return unwatching(appsOf(rows));
                            }},
                           {},
                           true};
  return std::make_unique<ListSection>(row, world);
}

}  // namespace quillet
