// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "desktop/frame/content_pane.h"
#include "desktop/frame/section_stack.h"
#include "desktop/frame/window_memory.h"
#include "desktop/models/navigator.h"
#include "desktop/page/app_page.h"

namespace quillet {

/// The chosen row, among those that are shown.
struct RowPosition {
  int at = -1;  ///< from 0; -1 where none is chosen
  int of = 0;
};

/// Keeps section, page and history in step with where the user is, and takes them elsewhere.
class Guide : public QObject {
  Q_OBJECT

 public:
  /// All outlive the guide. Nothing is shown before begin().
  Guide(SectionStack& sections, ContentPane& content, AppPage& page, WindowMemory& memory);

  /// Shows where the user was last, or is asked to be.
  void begin();

  [[nodiscard]] const Place& here() const { return history_.here(); }
  [[nodiscard]] Section* section() const { return sections_.current(); }
  [[nodiscard]] bool hasSection(SectionId id) const { return sections_.has(id); }
  [[nodiscard]] RowPosition position() const;
  [[nodiscard]] bool canGoBack() const { return history_.canGoBack(); }
  [[nodiscard]] bool canGoForward() const { return history_.canGoForward(); }

  void go(Place to);
  /// As it was left. `what`: the collection, or none.
  void goTo(SectionId section, std::optional<RowId> what = {});
  /// With the row and the scroll with which the same was left.
  void goAsLeft(Place to);
  /// The same place, shown otherwise: no step in the history.
  void change(Place to);
  void back();
  void forward();

  /// The row that is so many further down, where there is one.
  void chooseBy(int rows);
  [[nodiscard]] bool canChooseBy(int rows) const;
  /// The page of the chosen row: beside the list, or in its place.
  void open();
  /// From the page to the list, where the page stands in its place.
  void closePage();
  void setRowView(const RowView& view);
  /// Shows all rows of the place: no text, no chips, no filters.
  void clearFilters();

 Q_SIGNALS:
  /// Another place, row or view of rows.
  void moved();

 private:
  void arrive(const Place& here);
  void takeFocus();
  void follow();
  void keepHere();
  void noteLeft(const Place& place);
  void leavePage();
  void arrangePages();
  void showPage();

  SectionStack& sections_;
  ContentPane& content_;
  AppPage& page_;
  WindowMemory& memory_;
  Navigator history_;
  /// As each was left in this run, the latest first: a section, a collection, a search.
  std::vector<Place> left_;
};

}  // namespace quillet
