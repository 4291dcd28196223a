// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/app_finder.h"

#include "desktop/frame/quick_row.h"
#include "desktop/models/app_row.h"
#include "desktop/models/row_parts.h"

namespace quillet {

namespace {

constexpr std::size_t kMostFound = 200;

}  // namespace

AppFinder::AppFinder(const FinderTexts& texts, LibraryGateway& library, QWidget& window,
                     std::function<std::string()> storefront)
    : Finder(texts, window), library_(library), storefront_(std::move(storefront)) {}

void AppFinder::open() {
  listed_.clear();
  begin();
  detach(read(this, ++generation_), "Apps");
}

Task<> AppFinder::read(QPointer<AppFinder> view, int generation) {
  std::vector<ListedApp> listed = co_await view->library_.read(listedApps);
  if (view && view->generation_ == generation) view->show(std::move(listed));
}

void AppFinder::show(std::vector<ListedApp> listed) {
  listed_ = std::move(listed);
  folded_.clear();
  for (const ListedApp& each : listed_)
    folded_.push_back(foldedText({QString::fromStdString(each.name)}));
  searchAgain();
}

/// Names that begin with the text come first, in the order of the lists.
void AppFinder::search(const QString& typed) {
  const QString text = typed.toCaseFolded();
  shown_.clear();
  std::vector<std::size_t> within;
  for (std::size_t i = 0; i < listed_.size() && shown_.size() < kMostFound; ++i) {
    if (folded_[i].startsWith(text)) {
      shown_.push_back(i);
    } else if (folded_[i].contains(text)) {
      within.push_back(i);
    }
  }
  shown_.insert(shown_.end(), within.begin(), within.end());
  if (shown_.size() > kMostFound) shown_.resize(kMostFound);
  for (const std::size_t at : shown_) {
    auto* item = new QStandardItem(nameLine(listed_[at].name));
    const QString list = listText(listed_[at]);
    item->setData(list, QuickListRole);
    item->setData(item->text() + QStringLiteral(", ") + list, Qt::AccessibleTextRole);
    found().appendRow(item);
  }
  if (!text.isEmpty()) addStoreRow();
}

/// What is in no list may be in the store.
void AppFinder::addStoreRow() {
  auto* item = new QStandardItem(tr("Search the store for “%1”").arg(text()));
  item->setData(item->text(), Qt::AccessibleTextRole);
  found().appendRow(item);
}

/// The same app may be listed in several storefronts.
QString AppFinder::listText(const ListedApp& listed) const {
  const QString name = listNameOf(listed);
  if (listed.app.country == storefront_()) return name;
  return name + QStringLiteral(" · ") + QString::fromStdString(listed.app.country);
}

void AppFinder::choose(int row) {
  const auto at = static_cast<std::size_t>(row);
  if (at == shown_.size()) {
    const QString wanted = text();
    leave();
    Q_EMIT searched(wanted);
    return;
  }
  const Place place = placeOf(listed_[shown_[at]]);
  const QString name = nameLine(listed_[shown_[at]].name);
  leave();
  Q_EMIT chosen(place, name);
}

}  // namespace quillet
