// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/fake_section.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "desktop/frame/section_table.h"

namespace quillet {

namespace {

bool byName(const AppRow& left, const AppRow& right) { return left.folded < right.folded; }
bool byNumber(const AppRow& left, const AppRow& right) {
  return left.key.app.trackId > right.key.app.trackId;
}

constexpr SortChoice kSorts[] = {{"name", "Name", byName}, {"number", "Number", byNumber}};
constexpr ChipChoice kChips[] = {{"free", "Free", RowMark::isFree}};

RowTable table() {
  RowTable table;
  table.sorts = kSorts;
  table.chips = kChips;
  return table;
}

std::vector<AppRow> rowsOf(int apps) {
  std::vector<AppRow> rows;
  for (int i = 1; i <= apps; ++i) {
    AppRow row;
    row.key.app = {i, "us"};
    row.name = QStringLiteral("App %1").arg(i, 3, 10, QLatin1Char('0'));
    row.folded = foldedText({row.name});
    rows.push_back(row);
  }
  return rows;
}

QWidget* named(QWidget* widget, const char* name) {
  widget->setAccessibleName(QString::fromLatin1(name));
  return widget;
}

QWidget* madeTools() {
  auto* tools = new QWidget;
  auto* layout = new QHBoxLayout(tools);
  QWidget* field = named(new QLineEdit, "Search the App Store");
  layout->addWidget(field);
  layout->addWidget(named(new QPushButton, "Storefront"));
  tools->setFocusProxy(field);
  return tools;
}

QWidget* madeBar() {
  QWidget* bar = named(new QWidget, "Filters of Search");
  named(new QPushButton(bar), "Preset");
  return bar;
}

}  // namespace

FakeSection::FakeSection(SectionId id, int apps)
    : id_(id), shown_(rows_, table()), list_(new QListView) {
  rows_.reset(rowsOf(apps));
  if (id == SectionId::search) {
    tools_ = madeTools();
    bar_ = madeBar();
  }
  list_->setModel(&shown_);
  list_->setAccessibleName(nameOf(id));
  list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  const auto tell = [this] {
    if (!isShowing_) Q_EMIT placeChanged();
  };
  connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this, tell);
  connect(list_->verticalScrollBar(), &QScrollBar::valueChanged, this, tell);
  connect(list_, &QListView::activated, this,
          [this](const QModelIndex& at) { Q_EMIT opens(shown_.at(at.row()).key); });
}

FakeSection::~FakeSection() = default;

QWidget* FakeSection::view() { return list_; }

void FakeSection::show(const Place& place) {
  const QScopedValueRollback showing(isShowing_, true);
  place_ = place;
  asked = place;
  shown_.setView(place.rows);
  list_->clearSelection();
  if (place.chosen) choose(*place.chosen);
  list_->verticalScrollBar()->setValue(place.anchor.offset);
}

Place FakeSection::place() const {
  Place place = place_;
  place.rows = shown_.view();
  place.chosen.reset();
  const QModelIndexList selected = list_->selectionModel()->selectedIndexes();
  if (!selected.isEmpty()) place.chosen = shown_.at(selected.front().row()).key;
  place.anchor.offset = list_->verticalScrollBar()->value();
  return place;
}

std::vector<AppKey> FakeSection::chosen() const {
  std::vector<AppKey> apps;
  for (const QModelIndex& index : list_->selectionModel()->selectedIndexes())
    apps.push_back(shown_.at(index.row()).key.app);
  return apps;
}

QString FakeSection::title() const {
  const auto* collection = std::get_if<RowId>(&place_.what);
  return collection == nullptr ? nameOf(id_) : QStringLiteral("Collection %1").arg(*collection);
}

QString FakeSection::findText() const { return QStringLiteral("Find in ") + title(); }

void FakeSection::setRowView(const RowView& view) {
  shown_.setView(view);
  Q_EMIT placeChanged();
}

std::span<const SortChoice> FakeSection::sorts() const {
  return id_ == SectionId::watchlist ? std::span<const SortChoice>(kSorts)
                                     : std::span<const SortChoice>();
}

int FakeSection::leastWidth() const { return kLeastListWidth + (showsFilters_ ? 244 : 0); }

std::optional<bool> FakeSection::filtersShown() const {
  return id_ == SectionId::search ? std::optional(showsFilters_) : std::nullopt;
}

void FakeSection::toggleFilters() {
  showsFilters_ = !showsFilters_;
  Q_EMIT placeChanged();
}

void FakeSection::choose(const RowKey& row) {
  if (shown_.find(row) >= 0) list_->setCurrentIndex(shown_.index(shown_.find(row), 0));
}

void FakeSection::takeFocus() { list_->setFocus(Qt::OtherFocusReason); }

}  // namespace quillet
