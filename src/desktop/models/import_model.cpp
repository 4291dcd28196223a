// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/import_model.h"

#include <QLocale>
#include <algorithm>
#include <set>
#include <utility>

#include "desktop/models/collection_symbol.h"
#include "desktop/models/row_parts.h"
#include "store/records/storefronts.h"

namespace quillet {

namespace {

// A file may hold texts of megabytes, of which a row shows a line.
constexpr std::size_t kShownText = 300;

bool isAdded(ImportFate fate) { return fate == ImportFate::added; }

std::size_t newEntries(const CollectionPreview& preview) {
  return static_cast<std::size_t>(std::ranges::count_if(preview.entries, isAdded));
}

QString number(std::size_t count) { return QLocale().toString(static_cast<qulonglong>(count)); }

QString counted(std::size_t count, const char* one, const char* many) {
  if (count == 1) return ImportModel::tr(one);
  return ImportModel::tr(many).arg(number(count));
}

/// What amounts of that storefront are in; empty where the store may ask for another currency than
/// the country's own.
std::string currencyOf(const std::string& country) {
  if (std::ranges::find(kTrackedStorefronts, country) == kTrackedStorefronts.end()) return {};
  const auto territory = QLocale::codeToTerritory(QString::fromStdString(country).toUpper());
  return QLocale(QLocale::AnyLanguage, QLocale::AnyScript, territory)
      .currencySymbol(QLocale::CurrencyIsoCode)
      .toStdString();
}

bool isNewCollection(const CollectionPreview& preview) {
  return isAdded(preview.itself) || newEntries(preview) > 0;
}

/// Leaves out what has no tick, and what the file repeats of it: that would be added in its place.
template <typename Item, typename Key>
std::vector<Item> withoutUnticked(const std::vector<Item>& items, Key keyOfItem,
                                  const std::vector<char>& isNew, const std::vector<char>& set) {
  std::set<decltype(keyOfItem(items[0]))> unwanted;
  std::vector<Item> kept;
  for (std::size_t i = 0; i < items.size(); ++i) {
    auto key = keyOfItem(items[i]);
    if (isNew[i] != 0 && set[i] == 0) {
      unwanted.insert(std::move(key));
    } else if (!unwanted.contains(key)) {
      kept.push_back(items[i]);
    }
  }
  return kept;
}

}  // namespace

ImportModel::ImportModel(ReadLibrary library, const UserLocale& locale, QObject* parent)
    : QAbstractItemModel(parent), library_(std::move(library)), formats_(locale) {
  const auto add = [this](Group group, const auto& previews, auto isNew) {
    if (previews.empty()) return;
    Ticks ticks{group, {}, {}, 0, 0};
    for (const auto& each : previews) ticks.isNew.push_back(isNew(each) ? 1 : 0);
    ticks.set = ticks.isNew;
    ticks.count = ticks.most = static_cast<std::size_t>(std::ranges::count(ticks.isNew, 1));
    groups_.push_back(std::move(ticks));
  };
  add(Group::watchlist, library_.preview.watchlist, isAdded);
  add(Group::collections, library_.preview.collections, isNewCollection);
}

/// The group of a row, or the one that it is.
const ImportModel::Ticks& ImportModel::ticksOf(const QModelIndex& index) const {
  const QModelIndex group = index.parent().isValid() ? index.parent() : index;
  return groups_.at(static_cast<std::size_t>(group.row()));
}

ImportLine ImportModel::line(const QModelIndex& index) const {
  const Ticks& ticks = ticksOf(index);
  if (!index.parent().isValid()) return groupLine(ticks);
  const auto item = static_cast<std::size_t>(index.row());
  return ticks.group == Group::watchlist ? appLine(item) : collectionLineOf(item);
}

ImportLine ImportModel::groupLine(const Ticks& ticks) const {
  ImportLine line;
  line.isGroup = true;
  line.canTick = ticks.most > 0;
  if (ticks.group == Group::watchlist) {
    line.text = tr("Watchlist");
    line.icon = QStringLiteral("eye");
    line.detail = ticks.most == 0 ? tr("already watched")
                  : ticks.count == ticks.set.size()
                      ? tr("%1 to add").arg(number(ticks.count))
                      : tr("%1 of %2 to add").arg(number(ticks.count), number(ticks.set.size()));
    return line;
  }
  const auto made = static_cast<std::size_t>(
      std::ranges::count_if(library_.preview.collections, isAdded, &CollectionPreview::itself));
  line.text = tr("Collections");
  line.icon = QStringLiteral("collection");
  line.detail = made == 0 ? number(ticks.set.size())
                : made == ticks.set.size()
                    ? tr("%1, new").arg(number(made))
                    : tr("%1, %2 of them new").arg(number(ticks.set.size()), number(made));
  return line;
}

ImportLine ImportModel::appLine(std::size_t item) const {
  const WatchedItem& app = library_.document->watchlist[item];
  ImportLine line;
  line.text = nameLine(beginningOf(app.name, kShownText));
  line.canTick = isAdded(library_.preview.watchlist[item]);
  line.detail = line.canTick ? watchDetail(app) : tr("already watched");
  return line;
}

QString ImportModel::watchDetail(const WatchedItem& item) const {
  const QString country = QString::fromStdString(item.country);
  if (!item.targetPrice) return country;
  const std::string amount = formats_.currency(*item.targetPrice, currencyOf(item.country));
  return tr("%1 · target %2").arg(country, QString::fromStdString(amount));
}

ImportLine ImportModel::collectionLineOf(std::size_t item) const {
  const CollectionItem& collection = library_.document->collections[item];
  const CollectionPreview& preview = library_.preview.collections[item];
  const std::size_t added = newEntries(preview);
  const std::size_t present = preview.entries.size() - added;
  ImportLine line;
  line.text = collectionLine(beginningOf(collection.name, kShownText));
  line.icon = iconOfSymbol(collection.symbolName);
  line.isNew = isAdded(preview.itself);
  line.canTick = isNewCollection(preview);
  const QString held = tr("%1 already in it").arg(number(present));
  if (line.isNew) {
    line.detail = preview.entries.empty() ? tr("empty") : counted(added, "1 app", "%1 apps");
    return line;
  }
  if (line.canTick) line.remark = tr("joins your own");
  line.detail = preview.entries.empty() ? tr("already there")
                : added == 0            ? held
                : present == 0          ? tr("%1 to add").arg(number(added))
                                        : tr("%1 to add, %2").arg(number(added), held);
  return line;
}

Qt::CheckState ImportModel::stateOf(const QModelIndex& index) const {
  const Ticks& ticks = ticksOf(index);
  if (index.parent().isValid())
    return ticks.set[static_cast<std::size_t>(index.row())] != 0 ? Qt::Checked : Qt::Unchecked;
  if (ticks.count == 0) return Qt::Unchecked;
  return ticks.count == ticks.most ? Qt::Checked : Qt::PartiallyChecked;
}

void ImportModel::setAll(Ticks& ticks, bool isSet) {
  ticks.set = isSet ? ticks.isNew : std::vector<char>(ticks.set.size(), 0);
  ticks.count = isSet ? ticks.most : 0;
}

/// The rows that have one tick: collections of one name are one.
std::vector<std::size_t> ImportModel::likeRow(const Ticks& ticks, std::size_t item) const {
  if (ticks.group == Group::watchlist) return {item};
  const std::vector<CollectionItem>& all = library_.document->collections;
  std::vector<std::size_t> rows;
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (ticks.isNew[i] != 0 && all[i].name == all[item].name) rows.push_back(i);
  }
  return rows;
}

void ImportModel::toggle(const QModelIndex& index) {
  if (!index.isValid()) return;
  const QModelIndex parent = index.parent();
  const int group = parent.isValid() ? parent.row() : index.row();
  Ticks& ticks = groups_[static_cast<std::size_t>(group)];
  if (!parent.isValid()) {
    if (ticks.most == 0) return;
    setAll(ticks, ticks.count < ticks.most);
    return tell(group);
  }
  const auto item = static_cast<std::size_t>(index.row());
  if (ticks.isNew[item] == 0) return;
  const char set = ticks.set[item] != 0 ? 0 : 1;
  for (const std::size_t each : likeRow(ticks, item)) {
    ticks.count += set != 0 ? 1 : std::size_t(-1);
    ticks.set[each] = set;
    const QModelIndex row = this->index(static_cast<int>(each), 0, parent);
    Q_EMIT dataChanged(row, row);
  }
  const QModelIndex top = this->index(group, 0, {});
  Q_EMIT dataChanged(top, top);
  Q_EMIT ticked();
}

/// A group and all of its rows.
void ImportModel::tell(int group) {
  const QModelIndex top = index(group, 0, {});
  Q_EMIT dataChanged(top, top);
  Q_EMIT dataChanged(index(0, 0, top), index(rowCount(top) - 1, 0, top));
  Q_EMIT ticked();
}

bool ImportModel::canTickMore() const {
  return std::ranges::any_of(groups_, [](const Ticks& each) { return each.count < each.most; });
}

bool ImportModel::canImport() const {
  const ImportTally tally = this->tally();
  return tally.added > 0 || tally.made > 0 || (!groups_.empty() && !canTickMore());
}

void ImportModel::tickAll() {
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    if (groups_[i].count == groups_[i].most) continue;
    setAll(groups_[i], true);
    tell(static_cast<int>(i));
  }
}

ImportTally ImportModel::tally() const {
  ImportTally tally;
  tally.all = library_.document->watchlist.size();
  for (const CollectionPreview& each : library_.preview.collections)
    tally.all += each.entries.size();
  for (const Ticks& ticks : groups_) {
    if (ticks.group == Group::watchlist) {
      tally.added += ticks.count;
      continue;
    }
    for (std::size_t i = 0; i < ticks.set.size(); ++i) {
      if (ticks.set[i] == 0) continue;
      const CollectionPreview& collection = library_.preview.collections[i];
      tally.added += newEntries(collection);
      tally.made += isAdded(collection.itself) ? 1 : 0;
    }
  }
  return tally;
}

LibraryExport ImportModel::chosen() const {
  LibraryExport chosen{library_.document->exportedAt, {}, {}};
  for (const Ticks& ticks : groups_) {
    if (ticks.group == Group::watchlist) {
      const auto app = [](const WatchedItem& item) { return keyOf(item); };
      chosen.watchlist = withoutUnticked(library_.document->watchlist, app, ticks.isNew, ticks.set);
    } else {
      const auto name = [](const CollectionItem& item) { return item.name; };
      chosen.collections =
          withoutUnticked(library_.document->collections, name, ticks.isNew, ticks.set);
    }
  }
  return chosen;
}

QModelIndex ImportModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  // Of a row the place of its group, counted from one; of a group itself 0.
  return createIndex(row, column, static_cast<quintptr>(parent.isValid() ? parent.row() + 1 : 0));
}

QModelIndex ImportModel::parent(const QModelIndex& child) const {
  if (!child.isValid() || child.internalId() == 0) return {};
  return createIndex(static_cast<int>(child.internalId()) - 1, 0, quintptr{0});
}

int ImportModel::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return static_cast<int>(groups_.size());
  if (parent.internalId() != 0) return 0;
  return static_cast<int>(groups_.at(static_cast<std::size_t>(parent.row())).set.size());
}

int ImportModel::columnCount(const QModelIndex& /*parent*/) const { return 1; }

QVariant ImportModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == Qt::DisplayRole) return line(index).text;
  if (role == Qt::CheckStateRole) return stateOf(index);
  if (role == Qt::AccessibleTextRole) return sentence(index);
  return {};
}

/// "Riverrook RSS, us · target $7.99, ticked".
QString ImportModel::sentence(const QModelIndex& index) const {
  const ImportLine shown = line(index);
  QStringList parts{shown.text};
  if (!shown.remark.isEmpty()) parts.append(shown.remark);
  if (shown.isNew) parts.append(tr("new"));
  parts.append(shown.detail);
  if (shown.canTick) {
    const Qt::CheckState state = stateOf(index);
    parts.append(state == Qt::Checked            ? tr("ticked")
                 : state == Qt::PartiallyChecked ? tr("ticked in part")
                                                 : tr("not ticked"));
  }
  return parts.join(QStringLiteral(", "));
}

Qt::ItemFlags ImportModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = QAbstractItemModel::flags(index);
  if (index.isValid() && line(index).canTick) flags |= Qt::ItemIsUserCheckable;
  return flags;
}

QString ImportModel::summary() const {
  const ImportTally tally = this->tally();
  if (groups_.empty()) return tr("The file holds no apps and no collections.");
  if (tally.added == 0 && tally.made == 0)
    return canTickMore() ? tr("Nothing is ticked.") : tr("All of it is in your library already.");
  const QString what =
      tally.added == 0
          ? counted(tally.made, "1 new collection", "%1 new collections")
          : tr("%1 of %2").arg(number(tally.added), counted(tally.all, "1 item", "%1 items"));
  return tr("Adds %1. Nothing of yours is replaced; one undo takes all back.").arg(what);
}

}  // namespace quillet
