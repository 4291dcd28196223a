// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/collection_chooser.h"

#include <QLocale>

#include "desktop/frame/quick_row.h"
#include "desktop/models/row_parts.h"

namespace quillet {

CollectionChooser::CollectionChooser(const CountsFeed& counts, QWidget& window)
    : Finder({tr("Add to Collection"), tr("Name of a collection"), tr("Add to a collection"),
              tr("Collections")},
             window),
      counts_(counts) {}

void CollectionChooser::open(std::vector<NamedKey> apps) {
  apps_ = std::move(apps);
  begin();
}

void CollectionChooser::search(const QString& text) {
  const QString folded = text.toCaseFolded();
  shown_.clear();
  const auto add = [&](const QString& name, const QString& aside) {
    auto* item = new QStandardItem(name);
    item->setData(aside, QuickListRole);
    item->setData(aside.isEmpty() ? name : name + QStringLiteral(", ") + aside,
                  Qt::AccessibleTextRole);
    found().appendRow(item);
  };
  for (const CollectionCount& each : counts_.counts().collections) {
    const QString name = collectionLine(each.name);
    if (!name.toCaseFolded().contains(folded)) continue;
    shown_.push_back(each.key);
    add(name, QLocale().toString(static_cast<qlonglong>(each.apps)));
  }
  add(tr("New Collection…"), {});
}

void CollectionChooser::choose(int row) {
  const auto at = static_cast<std::size_t>(row);
  const QString name = text();
  leave();
  if (at < shown_.size()) {
    Q_EMIT chosen(shown_[at], apps_);
  } else {
    Q_EMIT newAsked(name, apps_);
  }
}

}  // namespace quillet
