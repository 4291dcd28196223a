// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/window_memory.h"

#include <QJsonArray>

#include "base/enum_table.h"

namespace quillet {

namespace {

using namespace Qt::StringLiterals;

// Stored; never change.
constexpr EnumTable<PageMode, 3> kPageModes{{
    {PageMode::byWidth, "by-width"},
    {PageMode::beside, "beside"},
    {PageMode::alone, "alone"},
}};
static_assert(isComplete(kPageModes, PageMode::alone));

QString textOf(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Rows of a collection are viewed apart from the overview of collections.
QString viewKey(const Place& place) {
  const QString section = textOf(textOf(kSectionWords, place.section));
  return std::holds_alternative<RowId>(place.what) ? section + "/one"_L1 : section;
}

QJsonObject jsonOf(const CollectionCount& count) {
  return {{"key"_L1, QString::number(count.key)},
          {"name"_L1, QString::fromStdString(count.name)},
          {"symbol"_L1, QString::fromStdString(count.symbolName)},
          {"apps"_L1, static_cast<qint64>(count.apps)}};
}

CollectionCount collectionOf(const QJsonObject& json) {
  return {json["key"_L1].toString().toLongLong(), json["name"_L1].toString().toStdString(),
          json["symbol"_L1].toString().toStdString(), json["apps"_L1].toInteger()};
}

struct CountRow {
  QLatin1StringView key;
  std::int64_t LibraryCounts::* count;
};

constexpr CountRow kCounts[] = {
    {"watched"_L1, &LibraryCounts::watched}, {"unread"_L1, &LibraryCounts::unreadAlerts},
    {"owned"_L1, &LibraryCounts::owned},     {"updates"_L1, &LibraryCounts::updates},
    {"viewed"_L1, &LibraryCounts::viewed},   {"deals"_L1, &LibraryCounts::deals},
};

/// The search as the place where it is shown.
QJsonObject jsonOf(const SavedQuery& search) {
  Place place;
  place.what = search.query;
  return {{"key"_L1, QString::number(search.key)},
          {"name"_L1, QString::fromStdString(search.name)},
          {"place"_L1, jsonOf(place)}};
}

SavedQuery searchOf(const QJsonObject& json) {
  SavedQuery search{
      json["key"_L1].toString().toLongLong(), json["name"_L1].toString().toStdString(), {}};
  const Place place = placeOf(json["place"_L1].toObject());
  if (const auto* query = std::get_if<StoreQuery>(&place.what)) search.query = *query;
  return search;
}

/// Whether what is shown there is what one comes back to; a collection has a name of its own.
bool isKept(SectionId section) {
  return section == SectionId::search || section == SectionId::charts ||
         section == SectionId::deals;
}

}  // namespace

Place WindowMemory::place() const {
  const QJsonValue kept = file_.value(u"place"_s);
  if (kept.isObject()) return placeOf(kept.toObject());
  Place first;
  first.section = SectionId::search;
  return first;
}

void WindowMemory::setPlace(const Place& place) {
  file_.setValue(u"place"_s, jsonOf(place));
  Place first;
  first.section = place.section;
  first.rows = place.rows;
  first.rows.text.clear();
  if (isKept(place.section)) first.what = place.what;
  QJsonObject views = file_.value(u"views"_s).toObject();
  views[viewKey(place)] = jsonOf(first);
  file_.setValue(u"views"_s, views);
}

Place WindowMemory::firstPlace(SectionId section, std::optional<RowId> collection) const {
  Place place;
  place.section = section;
  if (collection) place.what = *collection;
  const Place kept = placeOf(file_.value(u"views"_s).toObject()[viewKey(place)].toObject());
  place.rows = kept.rows;
  if (isKept(section)) place.what = kept.what;
  return place;
}

QRect WindowMemory::geometry() const {
  const QJsonObject kept = file_.value(u"geometry"_s).toObject();
  return {kept["x"_L1].toInt(), kept["y"_L1].toInt(), kept["width"_L1].toInt(),
          kept["height"_L1].toInt()};
}

void WindowMemory::setGeometry(const QRect& geometry) {
  file_.setValue(u"geometry"_s, QJsonObject{{"x"_L1, geometry.x()},
                                            {"y"_L1, geometry.y()},
                                            {"width"_L1, geometry.width()},
                                            {"height"_L1, geometry.height()}});
}

bool WindowMemory::isMaximized() const { return file_.value(u"maximized"_s).toBool(); }
void WindowMemory::setMaximized(bool isMaximized) { file_.setValue(u"maximized"_s, isMaximized); }

int WindowMemory::sidebarWidth() const { return file_.value(u"sidebarWidth"_s).toInt(); }
void WindowMemory::setSidebarWidth(int width) { file_.setValue(u"sidebarWidth"_s, width); }

bool WindowMemory::showsSidebar() const { return file_.value(u"sidebar"_s).toBool(true); }
void WindowMemory::setShowsSidebar(bool shows) { file_.setValue(u"sidebar"_s, shows); }

bool WindowMemory::showsMenuBar() const { return file_.value(u"menuBar"_s).toBool(true); }
void WindowMemory::setShowsMenuBar(bool shows) { file_.setValue(u"menuBar"_s, shows); }

double WindowMemory::listShare() const { return file_.value(u"listShare"_s).toDouble(); }
void WindowMemory::setListShare(double share) { file_.setValue(u"listShare"_s, share); }

PageMode WindowMemory::pageMode() const {
  return valueOf(kPageModes, file_.value(u"pageMode"_s).toString().toStdString())
      .value_or(PageMode::byWidth);
}

void WindowMemory::setPageMode(PageMode mode) {
  file_.setValue(u"pageMode"_s, textOf(textOf(kPageModes, mode)));
}

LibraryCounts WindowMemory::counts() const {
  const QJsonObject kept = file_.value(u"counts"_s).toObject();
  LibraryCounts counts;
  for (const CountRow& row : kCounts) counts.*row.count = kept[row.key].toInteger();
  for (const QJsonValue& each : kept["collections"_L1].toArray())
    counts.collections.push_back(collectionOf(each.toObject()));
  return counts;
}

void WindowMemory::setCounts(const LibraryCounts& counts) {
  QJsonObject kept;
  for (const CountRow& row : kCounts) kept[row.key] = static_cast<qint64>(counts.*row.count);
  QJsonArray collections;
  for (const CollectionCount& each : counts.collections) collections.append(jsonOf(each));
  kept["collections"_L1] = collections;
  file_.setValue(u"counts"_s, kept);
}

std::vector<SavedQuery> WindowMemory::searches() const {
  std::vector<SavedQuery> searches;
  for (const QJsonValue& each : file_.value(u"savedSearches"_s).toArray())
    searches.push_back(searchOf(each.toObject()));
  std::erase_if(searches, [](const SavedQuery& search) { return search.key == 0; });
  return searches;
}

void WindowMemory::setSearches(const std::vector<SavedQuery>& searches) {
  QJsonArray kept;
  for (const SavedQuery& each : searches) kept.append(jsonOf(each));
  file_.setValue(u"savedSearches"_s, kept);
}

}  // namespace quillet
