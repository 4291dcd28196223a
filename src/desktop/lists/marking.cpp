// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/marking.h"

#include <QCoreApplication>
#include <algorithm>

#include "desktop/lists/list_pane.h"
#include "desktop/lists/removal.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Sections", text); }

std::vector<RowKey> unreadOf(const ListPane& pane) {
  std::vector<RowKey> rows = pane.chosenRows();
  std::erase_if(rows, [&](const RowKey& row) {
    return !pane.rows().at(pane.rows().find(row)).marks.testFlag(RowMark::unread);
  });
  return rows;
}

}  // namespace

QString markingTextOf(const Marking& marking, const ListPane& pane) {
  if (marking.step == nullptr) return {};
  const bool allRead = !pane.chosenRows().empty() && unreadOf(pane).empty();
  return allRead ? tr("Mark as Unread") : tr("Mark as Read");
}

std::optional<LibraryEdit> markingOf(const Marking& marking, const ListPane& pane) {
  const std::vector<RowKey> chosen = pane.chosenRows();
  if (marking.step == nullptr || chosen.empty()) return std::nullopt;
  const std::vector<RowKey> unread = unreadOf(pane);
  const bool allRead = unread.empty();
  const std::vector<RowKey>& rows = allRead ? chosen : unread;
  const QString name = phraseOf(marking.counted, rows, pane);
  const QString edit = allRead ? tr("Mark %1 as Unread") : tr("Mark %1 as Read");
  const QString done = allRead ? tr("Marked %1 as unread.") : tr("Marked %1 as read.");
  return LibraryEdit{edit.arg(name), done.arg(name), tr("%1: not marked.").arg(name),
                     marking.step(idsOf(rows), allRead ? ReadState::unread : ReadState::read)};
}

}  // namespace quillet
