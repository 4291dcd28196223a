// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/removal.h"

#include <QCoreApplication>
#include <algorithm>
#include <iterator>

#include "desktop/lists/list_pane.h"

namespace quillet {

namespace {

QString tr(const char* text, int count = -1) {
  return QCoreApplication::translate("Sections", text, nullptr, count);
}

}  // namespace

QString phraseOf(const char* counted, const std::vector<RowKey>& rows, const ListPane& pane) {
  if (rows.size() > 1) return tr(counted, static_cast<int>(rows.size()));
  return tr("“%1”").arg(pane.rows().at(pane.rows().find(rows.front())).name);
}

std::optional<LibraryEdit> removalOf(const Removal& removal, const Place& place,
                                     const ListPane& pane) {
  const std::vector<RowKey> rows = pane.chosenRows();
  if (removal.step == nullptr || rows.empty()) return std::nullopt;
  const QString name = phraseOf(removal.counted, rows, pane);
  return LibraryEdit{tr("Remove %1").arg(name), tr("Removed %1.").arg(name),
                     tr("%1: not removed.").arg(name), removal.step(place, rows)};
}

std::vector<AppKey> appsOf(const std::vector<RowKey>& rows) {
  std::vector<AppKey> apps;
  std::ranges::transform(rows, std::back_inserter(apps), &RowKey::app);
  return apps;
}

std::vector<RowId> idsOf(const std::vector<RowKey>& rows) {
  std::vector<RowId> ids;
  std::ranges::transform(rows, std::back_inserter(ids), &RowKey::row);
  return ids;
}

}  // namespace quillet
