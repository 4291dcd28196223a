// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/unread_finder.h"

#include <algorithm>

#include "library/alerts.h"

namespace quillet {

namespace {

std::vector<RowKey> unreadRows(SQLite::Database& database) {
  std::vector<RowKey> rows;
  for (const AlertRecord& alert : alerts(database)) {
    if (!alert.isRead) rows.push_back({keyOf(alert), alert.id});
  }
  return rows;
}

}  // namespace

UnreadFinder::UnreadFinder(LibraryGateway& library, Guide& guide)
    : library_(library), guide_(guide) {}

void UnreadFinder::goToNext() { detach(findNext(this), "Alerts"); }

Task<> UnreadFinder::findNext(QPointer<UnreadFinder> finder) {
  const std::vector<RowKey> rows = co_await finder->library_.read(unreadRows);
  if (!finder || rows.empty()) co_return;
  const Place& here = finder->guide_.here();
  auto next = rows.begin();
  if (here.section == SectionId::alerts && here.chosen) {
    const auto at = std::ranges::find(rows, *here.chosen);
    if (at != rows.end() && at + 1 != rows.end()) next = at + 1;
  }
  Place to;
  to.section = SectionId::alerts;
  to.chosen = *next;
  to.page = here.page;
  finder->guide_.go(std::move(to));
}

}  // namespace quillet
