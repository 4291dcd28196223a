// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/guide.h"

#include <QPointer>
#include <algorithm>

#include "desktop/frame/pane_ring.h"
#include "desktop/models/row_filter_model.h"

namespace quillet {

namespace {

constexpr std::size_t kMostLeft = 100;

RowId collectionIn(const Place& place) {
  const auto* collection = std::get_if<RowId>(&place.what);
  return collection == nullptr ? 0 : *collection;
}

std::pair<SectionId, RowId> subjectOf(const Place& place) {
  return {place.section, collectionIn(place)};
}

/// Rows that are no app's have no page.
std::optional<AppKey> appOf(const std::optional<RowKey>& row) {
  if (!row || row->app.trackId == 0) return {};
  return row->app;
}

}  // namespace

Guide::Guide(SectionStack& sections, ContentPane& content, AppPage& page, WindowMemory& memory)
    : sections_(sections),
      content_(content),
      page_(page),
      memory_(memory),
      history_(memory.place()) {
  connect(&history_, &Navigator::arrived, this, &Guide::arrive);
  connect(&sections, &SectionStack::placeChanged, this, &Guide::follow);
  connect(&sections, &SectionStack::goes, this, &Guide::go);
  connect(&sections, &SectionStack::opens, this, &Guide::open);
  connect(&page, &AppPage::goes, this, &Guide::go);
}

void Guide::begin() {
  if (!hasSection(here().section)) history_.replace(memory_.firstPlace(sections_.first(), {}));
  arrive(here());
}

RowPosition Guide::position() const {
  const RowFilterModel* rows = section() == nullptr ? nullptr : section()->rows();
  if (rows == nullptr) return {};
  return {here().chosen ? rows->find(*here().chosen) : -1, rows->rowCount()};
}

void Guide::go(Place to) {
  keepHere();
  history_.go(std::move(to));
}

void Guide::goTo(SectionId section, std::optional<RowId> what) {
  Place to = memory_.firstPlace(section, what);
  if (subjectOf(to) == subjectOf(here())) {
    closePage();
    return;
  }
  const auto left = std::ranges::find(left_, subjectOf(to), subjectOf);
  if (left != left_.end()) to = *left;
  to.page = PageSpan::beside;
  go(std::move(to));
}

void Guide::goAsLeft(Place to) {
  const auto isTheSame = [&](const Place& left) {
    return left.section == to.section && left.what == to.what;
  };
  const auto left = std::ranges::find_if(left_, isTheSame);
  if (left != left_.end()) to = *left;
  to.page = PageSpan::beside;
  go(std::move(to));
}

void Guide::change(Place to) {
  history_.replace(std::move(to));
  arrive(here());
}

void Guide::back() {
  keepHere();
  history_.back();
}

void Guide::forward() {
  keepHere();
  history_.forward();
}

bool Guide::canChooseBy(int rows) const {
  const RowPosition position = this->position();
  if (position.of == 0) return false;
  const int to = position.at + rows;
  return position.at < 0 ? rows > 0 : to >= 0 && to < position.of;
}

void Guide::chooseBy(int rows) {
  if (!canChooseBy(rows)) return;
  section()->choose(section()->rows()->at(position().at + rows).key);
}

void Guide::open() {
  if (section() == nullptr) return;
  const Place now = section()->place();
  if (!appOf(now.chosen)) return;
  if (content_.isBeside()) {
    page_.setFocus(Qt::TabFocusReason);
    return;
  }
  Place alone = now;
  alone.page = PageSpan::alone;
  go(std::move(alone));
  page_.setFocus(Qt::TabFocusReason);
}

void Guide::closePage() {
  if (content_.showsPageAlone()) {
    keepHere();
    leavePage();
  }
  if (section() != nullptr) section()->takeFocus();
}

/// Back to where the page was opened, with the row that the user went on to.
void Guide::leavePage() {
  Place list = here();
  list.page = PageSpan::beside;
  const Place* before = history_.previous();
  const bool cameFromList =
      before != nullptr && isSameSubject(*before, list) && before->page == PageSpan::beside;
  if (!cameFromList) {
    history_.go(std::move(list));
    return;
  }
  history_.back();
  if (list.chosen && here().chosen != list.chosen) section()->choose(*list.chosen);
}

void Guide::setRowView(const RowView& view) {
  if (section() == nullptr) return;
  section()->setRowView(view);
  follow();
}

void Guide::clearFilters() {
  if (section() == nullptr) return;
  setRowView({{}, {}, here().rows.sort});
  Place all = here();
  if (auto* query = std::get_if<StoreQuery>(&all.what)) {
    query->request.filters = {};
  } else if (auto* deals = std::get_if<DealPlace>(&all.what)) {
    deals->minimumDrop = 0;
  } else {
    return;
  }
  change(std::move(all));
}

void Guide::arrive(const Place& here) {
  const bool hadFocus = PaneRing::hasFocus(content_);
  // Of a window that is not active yet, too.
  const QPointer<QWidget> focused = content_.window()->focusWidget();
  content_.setSpan(here.page);
  sections_.showPlace(here);
  arrangePages();
  showPage();
  if (hadFocus) takeFocus();
  memory_.setPlace(here);
  Q_EMIT moved();
  // The tools of the section before went with it.
  if (!hadFocus && focused && !focused->isVisible()) takeFocus();
}

/// What hides with the focus gives it to whatever comes next.
void Guide::takeFocus() {
  if (content_.showsPageAlone()) {
    page_.setFocus(Qt::OtherFocusReason);
  } else {
    section()->takeFocus();
  }
}

/// The section is elsewhere within the same place.
void Guide::follow() {
  const std::optional<RowKey> before = here().chosen;
  keepHere();
  arrangePages();
  if (here().chosen != before || section()->chosen().size() != 1) showPage();
  Q_EMIT moved();
}

void Guide::keepHere() {
  if (section() == nullptr) return;
  Place now = section()->place();
  now.page = here().page;
  noteLeft(now);
  memory_.setPlace(now);
  history_.replace(std::move(now));
}

void Guide::noteLeft(const Place& place) {
  std::erase_if(left_, [&](const Place& each) { return isSameSubject(each, place); });
  left_.insert(left_.begin(), place);
  if (left_.size() > kMostLeft) left_.pop_back();
}

void Guide::arrangePages() { content_.setPages(section()->hasPages() ? Pages::some : Pages::none); }

void Guide::showPage() {
  const std::size_t chosen = section()->chosen().size();
  page_.show(chosen > 1 ? std::optional<AppKey>() : appOf(here().chosen), chosen);
}

}  // namespace quillet
