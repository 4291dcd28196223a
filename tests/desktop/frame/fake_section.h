// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QListView>
#include <QPointer>

#include "desktop/lists/section.h"
#include "desktop/models/row_filter_model.h"

namespace quillet {

/// A section of so many apps, which stands where it is put. Row n is the app n of "us". Search has
/// a field and a button as its tools, a button as its bar, and a panel of filters.
class FakeSection : public Section {
  Q_OBJECT

 public:
  FakeSection(SectionId id, int apps);
  ~FakeSection() override;

  QWidget* view() override;
  void show(const Place& place) override;
  [[nodiscard]] Place place() const override;
  [[nodiscard]] std::vector<AppKey> chosen() const override;
  void refresh() override { ++refreshed; }
  void renew() override { ++renewed; }
  [[nodiscard]] QString title() const override;
  [[nodiscard]] QString findText() const override;
  void setRowView(const RowView& view) override;
  [[nodiscard]] std::span<const SortChoice> sorts() const override;
  [[nodiscard]] const RowFilterModel* rows() const override { return &shown_; }
  void choose(const RowKey& row) override;
  void takeFocus() override;

  QWidget* tools() override { return tools_; }
  QWidget* bar() override { return bar_; }
  [[nodiscard]] int leastWidth() const override;
  [[nodiscard]] std::optional<bool> filtersShown() const override;
  void toggleFilters() override;

  QListView& list() { return *list_; }

  int refreshed = 0;
  int renewed = 0;
  Place asked;  ///< by the last show()

 private:
  SectionId id_;
  AppListModel rows_;
  RowFilterModel shown_;
  QPointer<QListView> list_;
  QPointer<QWidget> tools_;
  QPointer<QWidget> bar_;
  bool showsFilters_ = false;
  Place place_;
  bool isShowing_ = false;
};

}  // namespace quillet
