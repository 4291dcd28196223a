// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/list_section.h"

#include <QCoreApplication>
#include <algorithm>
#include <utility>

#include "desktop/models/library_feed.h"

namespace quillet {

namespace {
QString translated(const char* text) { return QCoreApplication::translate("Sections", text); }
}  // namespace

ListSection::ListSection(ListSectionRow row, const ViewWorld& world)
    : row_(std::move(row)),
      world_(world),
      feed_(new LibraryFeed(world.library, world.clock)),
      pane_(
          new ListPane(translated(row_.title), row_.table, std::unique_ptr<RowFeed>(feed_), world)),
      dayTurn_(world) {
  place_.section = row_.id;
  connect(pane_, &ListPane::changed, this, &Section::placeChanged);
  connect(pane_, &ListPane::opened, this, &Section::opens);
  connect(pane_, &ListPane::menuAsked, this, &Section::menuAsked);
  connect(pane_, &ListPane::settingsAsked, this, &Section::settingsAsked);
  connect(pane_, &ListPane::actionAsked, this, &Section::actionAsked);
  connect(&world.settings, &LiveSettings::changed, this, &ListSection::takeSettings);
  if (row_.remark != nullptr) pane_->setRemark(row_.remark(world_));
  connect(&dayTurn_, &DayTurn::turned, this, &ListSection::refresh);
}

// Unless the window, which has it as a child, was the first to go.
ListSection::~ListSection() { delete pane_; }

QWidget* ListSection::view() { return pane_; }

void ListSection::show(const Place& place) {
  const bool isSame = std::exchange(isShown_, true) && isSameSubject(place_, place);
  place_ = place;
  if (isSame) {
    pane_->bringBack(place);
    dayTurn_.look();
    return;
  }
  feed_->show(row_.source(place, world_));
  pane_->expect(place);
  dayTurn_.await();
}

void ListSection::takeSettings(const std::set<std::string>& keys) {
  const auto matters = [&keys](const std::string& key) { return keys.contains(key); };
  if (!std::ranges::any_of(row_.settings, matters)) return;
  if (row_.remark != nullptr) pane_->setRemark(row_.remark(world_));
  if (isShown_) refresh();
}

Place ListSection::place() const { return pane_->keptIn(place_); }

std::vector<AppKey> ListSection::chosen() const { return pane_->chosen(); }
void ListSection::refresh() {
  feed_->renew(row_.source(place_, world_));
  dayTurn_.await();
}
QString ListSection::title() const { return translated(row_.title); }
QString ListSection::findText() const { return translated(row_.findText); }
void ListSection::setRowView(const RowView& view) { pane_->setRowView(view); }
std::span<const SortChoice> ListSection::sorts() const { return row_.table.sorts; }
const RowFilterModel* ListSection::rows() const { return &pane_->rows(); }
void ListSection::choose(const RowKey& row) { pane_->choose(row); }
void ListSection::takeFocus() { pane_->takeFocus(); }
QString ListSection::removalText() const {
  return row_.removal.text == nullptr ? QString() : translated(row_.removal.text);
}
std::optional<LibraryEdit> ListSection::removal() const {
  return removalOf(row_.removal, place_, *pane_);
}
void ListSection::noteChecks(const ListState& outcome) {
  if (row_.tellsChecks) pane_->setRemark(outcome, QStringLiteral("check-prices"));
}
QString ListSection::markingText() const { return markingTextOf(row_.marking, *pane_); }
std::optional<LibraryEdit> ListSection::marking() const { return markingOf(row_.marking, *pane_); }

}  // namespace quillet
