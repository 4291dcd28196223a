// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QListView>
#include <QStandardItemModel>
#include <vector>

#include "desktop/sections/search/search_hints.h"

namespace quillet {

/// The list below a field of what may be meant, over the window that the field is in. The field
/// keeps the focus and steers it; a click elsewhere closes it.
class HintList : public QListView {
  Q_OBJECT

 public:
  /// The field's, until it is shown.
  explicit HintList(QWidget& field);

  /// Opens it, or closes it where there is nothing to show. None of them is the current one.
  /// `storefront` is the user's own, of which nothing is said.
  void show(std::vector<SearchHint> hints, const std::string& storefront);
  using QListView::show;
  /// To the next one, or the one before; past the ends is none.
  void step(int by);
  /// The current one; null for none.
  [[nodiscard]] const SearchHint* current() const;

 Q_SIGNALS:
  /// With the pointer.
  void picked(const quillet::SearchHint& hint);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void place();

  QWidget& field_;
  std::vector<SearchHint> hints_;
  QStandardItemModel items_;
};

}  // namespace quillet
