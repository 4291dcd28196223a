// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTimer>
#include <chrono>
#include <functional>
#include <set>
#include <string>

#include "desktop/lists/day_turn.h"
#include "desktop/lists/list_pane.h"
#include "desktop/lists/marking.h"
#include "desktop/lists/removal.h"
#include "desktop/models/row_source.h"

namespace quillet {

class LibraryFeed;

/// A section that is one list. What it is about stands in its description.
struct ListSectionRow {
  SectionId id = SectionId::watchlist;
  const char* title;     ///< marked for translation in the context "Sections"
  const char* findText;  ///< likewise
  RowTable table;
  /// Where the rows of the place come from.
  std::function<RowSource(const Place& place, const ViewWorld& world)> source;
  std::set<std::string> settings = {};  ///< keys by which rows are made: they follow them
  /// What the settings leave to be told above rows that are all there; null for nothing.
  ListState (*remark)(const ViewWorld& world) = nullptr;
  Removal removal = {};
  Marking marking = {};
  bool tellsChecks = false;  ///< how the last price check ended
};

/// One list, and nothing beside it.
class ListSection : public Section {
  Q_OBJECT

 public:
  ListSection(ListSectionRow row, const ViewWorld& world);
  ~ListSection() override;

  QWidget* view() override;
  void show(const Place& place) override;
  [[nodiscard]] Place place() const override;
  [[nodiscard]] std::vector<AppKey> chosen() const override;
  void refresh() override;
  [[nodiscard]] QString title() const override;
  [[nodiscard]] QString findText() const override;
  void setRowView(const RowView& view) override;
  [[nodiscard]] std::span<const SortChoice> sorts() const override;
  [[nodiscard]] const RowFilterModel* rows() const override;
  void choose(const RowKey& row) override;
  void takeFocus() override;
  [[nodiscard]] QString removalText() const override;
  [[nodiscard]] std::optional<LibraryEdit> removal() const override;
  [[nodiscard]] QString markingText() const override;
  [[nodiscard]] std::optional<LibraryEdit> marking() const override;
  void noteChecks(const ListState& outcome) override;

 protected:
  [[nodiscard]] ListPane& pane() { return *pane_; }

 private:
  void takeSettings(const std::set<std::string>& keys);

  ListSectionRow row_;
  ViewWorld world_;
  LibraryFeed* feed_;  ///< the pane's
  QPointer<ListPane> pane_;
  Place place_;
  bool isShown_ = false;  ///< some place was
  DayTurn dayTurn_;
};

}  // namespace quillet
