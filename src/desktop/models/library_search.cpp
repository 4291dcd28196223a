// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/library_search.h"

#include <QCoreApplication>
#include <QUrl>
#include <algorithm>
#include <utility>

#include "base/errors.h"
#include "desktop/models/row_parts.h"
#include "desktop/services/quillet_link.h"
#include "library/collections.h"
#include "library/owned_apps.h"
#include "library/watched_apps.h"

namespace quillet {
namespace {

// A desktop shows five or so.
constexpr qsizetype kMostHits = 50;

QString tr(const char* text) { return QCoreApplication::translate("LibrarySearch", text); }

QString linkTo(const AppKey& app) {
  return QStringLiteral("quillet:app/%1?country=%2")
      .arg(app.trackId)
      .arg(QString::fromStdString(app.country));
}

/// An app of one list.
struct Listed {
  AppKey app;
  std::string name;
  QString list;
};

template <typename Rows>
void add(std::vector<Listed>& listed, const Rows& rows, const QString& list) {
  for (const auto& row : rows) listed.push_back({keyOf(row), row.name, list});
}

std::vector<Listed> listedIn(SQLite::Database& database) {
  std::vector<Listed> listed;
  add(listed, watchedApps(database), tr("Watchlist"));
  add(listed, ownedApps(database), tr("My Apps"));
  for (const AppCollection& each : collections(database))
    add(listed, entriesOf(database, each.id), collectionLine(each.name));
  return listed;
}

}  // namespace

LibrarySearch::LibrarySearch(std::filesystem::path library, std::string storefront,
                             std::function<void(const std::vector<std::string>&)> start)
    : library_(std::move(library)), storefront_(std::move(storefront)), start_(std::move(start)) {}

/// What cannot be read has no apps, and is tried again at the next question.
void LibrarySearch::follow() {
  try {
    if (!reader_) reader_.emplace(library_);
    if (reader_->hasChanged()) read();
  } catch (const DatabaseError&) {
    reader_.reset();
    apps_.clear();
  }
}

/// An app in several lists is one hit.
void LibrarySearch::read() {
  apps_.clear();
  for (const Listed& each : reader_->read(listedIn)) {
    Found& found = apps_[linkTo(each.app)];
    if (found.folded.isEmpty()) {
      found.hit.name = nameLine(each.name);
      found.folded = found.hit.name.toCaseFolded();
    }
    QString& lists = found.hit.description;
    lists += lists.isEmpty() ? each.list : QStringLiteral(", ") + each.list;
    found.country = QString::fromStdString(each.app.country);
  }
  for (auto& [link, found] : apps_) {
    if (found.country != QString::fromStdString(storefront_))
      found.hit.description += QStringLiteral(" · ") + found.country;
  }
}

/// Names that begin with the first word come first.
QStringList LibrarySearch::find(const QStringList& words) {
  follow();
  QStringList folded;
  for (const QString& word : words) folded << word.simplified().toCaseFolded();
  folded.removeAll(QString());
  if (folded.isEmpty()) return {};
  std::vector<std::pair<bool, std::pair<QString, QString>>> hits;
  for (const auto& [link, app] : apps_) {
    const auto isIn = [&name = app.folded](const QString& word) { return name.contains(word); };
    if (std::ranges::all_of(folded, isIn))
      hits.push_back({!app.folded.startsWith(folded.front()), {app.folded, link}});
  }
  std::ranges::sort(hits);
  QStringList links;
  for (const auto& [isWithin, hit] : hits) links << hit.second;
  return links.mid(0, kMostHits);
}

std::optional<SearchHit> LibrarySearch::describe(const QString& hit) {
  follow();
  const auto found = apps_.find(hit);
  return found == apps_.end() ? std::nullopt : std::optional(found->second.hit);
}

/// Anybody on the bus may say so: a link leads somewhere, and does nothing.
void LibrarySearch::open(const QString& hit) {
  const std::string link = hit.toStdString();
  if (readQuilletLink(link)) start_({"--open", link});
}

void LibrarySearch::search(const QString& text) {
  const QByteArray term = QUrl::toPercentEncoding(text.simplified());
  open(QStringLiteral("quillet:search?term=") + QString::fromLatin1(term));
}

}  // namespace quillet
