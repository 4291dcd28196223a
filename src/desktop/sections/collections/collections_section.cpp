// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/collections/collections_section.h"

#include <QCoreApplication>
#include <QPointer>
#include <QStackedWidget>
#include <map>
#include <utility>

#include "desktop/lists/list_pane.h"
#include "desktop/lists/removal.h"
#include "desktop/models/library_feed.h"
#include "desktop/models/seen_lookup.h"
#include "desktop/sections/collections/collection_head.h"
#include "library/collection_steps.h"

namespace quillet {

namespace {

constexpr Removal kRemoval{QT_TRANSLATE_NOOP("Sections", "Delete Collection"),
                           QT_TRANSLATE_NOOP("Sections", "%n collections"),
                           [](const Place& /*place*/, const std::vector<RowKey>& rows) {
                             return removingCollections(idsOf(rows));
                           }};
constexpr Removal kEntryRemoval{QT_TRANSLATE_NOOP("Sections", "Remove from Collection"),
                                QT_TRANSLATE_NOOP("Sections", "%n apps"),
                                [](const Place& place, const std::vector<RowKey>& rows) {
                                  return removingFrom(std::get<RowId>(place.what), appsOf(rows));
                                }};

// Prices of today are told; of apps that are watched, the price check tells them sooner.
constexpr auto kTooOld = std::chrono::hours(24);

/// An app in a collection, whose note is edited.
struct NotedApp {
  RowId collection = 0;
  RowKey row;
};

std::string readNote(SQLite::Database& database, const NotedApp& noted) {
  for (const CollectionEntry& entry : entriesOfApp(database, noted.row.app)) {
    if (entry.collection == noted.collection) return entry.note;
  }
  return {};
}

class CollectionsSection final : public Section {
 public:
  explicit CollectionsSection(const ViewWorld& world);
  ~CollectionsSection() override { delete view_; }

  QWidget* view() override { return view_; }
  void show(const Place& place) override;
  [[nodiscard]] Place place() const override { return pane().keptIn(place_); }
  [[nodiscard]] std::vector<AppKey> chosen() const override { return pane().chosen(); }
  void refresh() override { pane().refresh(); }
  [[nodiscard]] QString title() const override;
  [[nodiscard]] QString findText() const override;
  void setRowView(const RowView& view) override { pane().setRowView(view); }
  [[nodiscard]] std::span<const SortChoice> sorts() const override {
    return pane().rows().table().sorts;
  }
  [[nodiscard]] const RowFilterModel* rows() const override { return &pane().rows(); }
  [[nodiscard]] bool hasPages() const override { return collection().has_value(); }
  void choose(const RowKey& row) override { pane().choose(row); }
  void takeFocus() override { pane().takeFocus(); }
  [[nodiscard]] QString removalText() const override;
  [[nodiscard]] std::optional<LibraryEdit> removal() const override;
  [[nodiscard]] bool canEditNote() const override;
  void editNote() override;

 private:
  [[nodiscard]] std::optional<RowId> collection() const;
  [[nodiscard]] ListPane& pane() const { return collection() ? *apps_ : *overview_; }
  ListPane* made(const QString& name, const RowTable& table);
  void open(const RowKey& row);
  void take(const LibraryChanges& changes);
  void readHead();
  void askFor(const std::set<AppKey>& seen);
  void keepNote(const RowKey& row, const QString& note);
  static Task<> showNote(QPointer<CollectionsSection> section, NotedApp noted);
  static Task<> showHead(QPointer<CollectionsSection> section, RowId collection);

  ViewWorld world_;
  Place place_;
  QString name_;  ///< of the collection that is shown; empty until it is read
  QPointer<QStackedWidget> view_;
  std::map<ListPane*, LibraryFeed*> feeds_;  ///< of the two
  ListPane* overview_;
  ListPane* apps_;
  CollectionHeadView* head_;
  SeenLookup lookup_;
  NotedApp noted_;
  std::map<ListPane*, std::optional<RowId>> held_;  ///< of which collection the rows of each are
};

CollectionsSection::CollectionsSection(const ViewWorld& world)
    : world_(world),
      view_(new QStackedWidget),
      overview_(made(tr("Collections"), overviewTable())),
      apps_(made(tr("Apps of the collection"), collectionTable())),
      head_(new CollectionHeadView),
      lookup_(world) {
  apps_->setHead(head_);
  for (ListPane* pane : {overview_, apps_}) {
    view_->addWidget(pane);
    connect(pane, &ListPane::changed, this, &Section::placeChanged);
    connect(pane, &ListPane::opened, this, &CollectionsSection::open);
    connect(pane, &ListPane::menuAsked, this, &Section::menuAsked);
    connect(pane, &ListPane::actionAsked, this, &Section::actionAsked);
  }
  connect(apps_, &ListPane::noteWritten, this, &CollectionsSection::keepNote);
  connect(apps_, &ListPane::seen, this, &CollectionsSection::askFor);
  connect(&world_.library, &LibraryGateway::changed, this, &CollectionsSection::take);
  connect(&world_.library, &LibraryGateway::changedElsewhere, this, &CollectionsSection::readHead);
}

ListPane* CollectionsSection::made(const QString& name, const RowTable& table) {
  auto feed = std::make_unique<LibraryFeed>(world_.library, world_.clock);
  LibraryFeed* kept = feed.get();
  auto* pane = new ListPane(name, table, std::move(feed), world_);
  feeds_[pane] = kept;
  return pane;
}

void CollectionsSection::show(const Place& place) {
  if (place.what != place_.what) name_.clear();
  place_ = place;
  view_->setCurrentWidget(&pane());
  const auto shown = collection();
  const auto [held, isFirst] = held_.try_emplace(&pane(), shown);
  if (!isFirst && std::exchange(held->second, shown) == shown) {
    pane().bringBack(place);
  } else {
    lookup_.want({});
    if (shown) head_->show({});
    feeds_.at(&pane())->show(shown ? collectionSource(world_.locale, *shown)
                                   : overviewSource(world_.locale));
    pane().expect(place);
  }
  readHead();
}

QString CollectionsSection::title() const {
  return collection() && !name_.isEmpty() ? name_ : tr("Collections");
}

QString CollectionsSection::findText() const {
  if (!collection()) return tr("Find a collection");
  return name_.isEmpty() ? tr("Find in this collection") : tr("Find in %1").arg(name_);
}

std::optional<RowId> CollectionsSection::collection() const {
  const auto* shown = std::get_if<RowId>(&place_.what);
  return shown == nullptr ? std::nullopt : std::optional(*shown);
}

QString CollectionsSection::removalText() const {
  return QCoreApplication::translate("Sections", (collection() ? kEntryRemoval : kRemoval).text);
}

std::optional<LibraryEdit> CollectionsSection::removal() const {
  return removalOf(collection() ? kEntryRemoval : kRemoval, place_, pane());
}

bool CollectionsSection::canEditNote() const {
  return collection() && chosen().size() == 1 && pane().current();
}

void CollectionsSection::editNote() {
  if (canEditNote()) detach(showNote(this, {*collection(), *pane().current()}), "A note");
}

/// The whole note: a row shows it as one line.
Task<> CollectionsSection::showNote(QPointer<CollectionsSection> section, NotedApp noted) {
  const std::string note = co_await section->world_.library.read(readNote, noted);
  if (section.isNull() || section->collection() != noted.collection) co_return;
  section->noted_ = noted;
  section->apps_->editNote(noted.row, QString::fromStdString(note));
}

/// Those of which nothing is known, or nothing of today.
void CollectionsSection::askFor(const std::set<AppKey>& seen) {
  const Instant now = world_.clock.now();
  std::vector<AppKey> due;
  for (const AppKey& app : seen) {
    const int row = apps_->rows().find({app});
    if (row < 0) continue;
    const auto& checked = apps_->rows().at(row).checked;
    if (!checked || now - *checked >= kTooOld) due.push_back(app);
  }
  lookup_.want(std::move(due));
}

/// Of the collection in which it was begun: another one may be shown by now.
void CollectionsSection::keepNote(const RowKey& row, const QString& note) {
  const int place = apps_->rows().find(row);
  const QString name = place < 0 ? tr("an app") : apps_->rows().at(place).name;
  world_.edits.perform({tr("Edit Note on “%1”").arg(name),
                        tr("Changed the note on “%1”.").arg(name),
                        tr("The note on “%1” was not changed.").arg(name),
                        noting(noted_.collection, row.app, note.toStdString())});
}

void CollectionsSection::open(const RowKey& row) {
  if (collection()) {
    Q_EMIT opens(row);
  } else {
    Place inside;
    inside.section = SectionId::collections;
    inside.what = row.row;
    Q_EMIT goes(inside);
  }
}

void CollectionsSection::take(const LibraryChanges& changes) {
  const bool isTouched = !changes.collections.empty() || !changes.cachedApps.empty();
  // One that is not seen is read when it is shown.
  if (isTouched && head_->isVisible()) readHead();
}

void CollectionsSection::readHead() {
  if (const auto shown = collection()) detach(showHead(this, *shown), "A collection");
}

Task<> CollectionsSection::showHead(QPointer<CollectionsSection> section, RowId collection) {
  const auto head =
      co_await section->world_.library.read(readCollectionHead, collection, section->world_.locale);
  // Another one may be shown by now.
  if (section.isNull() || section->collection() != collection) co_return;
  if (head) {
    section->head_->show(*head);
    if (std::exchange(section->name_, head->name) != head->name) Q_EMIT section->placeChanged();
  } else {
    // One that is gone is no place to come back to: the overview takes its place.
    Place overview;
    overview.section = SectionId::collections;
    section->show(overview);
    Q_EMIT section->placeChanged();
  }
}

}  // namespace

std::unique_ptr<Section> makeCollections(const ViewWorld& world) {
  return std::make_unique<CollectionsSection>(world);
}

}  // namespace quillet
