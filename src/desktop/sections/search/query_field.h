// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <vector>

#include "desktop/look/search_field.h"
#include "desktop/models/view_world.h"
#include "desktop/sections/search/search_hints.h"
#include "net/task.h"

namespace quillet {

class HintList;

/// Where the user types what to search the store for. Nothing is asked before Enter; what is known
/// here and may be meant stands in a list below the field.
class QueryField : public SearchField {
  Q_OBJECT

 public:
  explicit QueryField(const ViewWorld& world, QWidget* parent = nullptr);
  ~QueryField() override;

  /// Nobody is told. What the user is typing stays until it is another text's turn.
  void setShownText(const QString& text);

 Q_SIGNALS:
  void submitted(const QString& text);
  /// A recent or a saved search.
  void chosen(const quillet::StoreQuery& query);
  /// The user wants to go on to the rows.
  void left();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  static Task<> read(QPointer<QueryField> field, int generation);
  void suggest();
  void goDown();
  void submit();
  void take(const SearchHint& hint);

  ViewWorld world_;
  QString shown_;  ///< what it was told to show last
  std::vector<SearchHint> recent_;
  std::vector<SearchHint> known_;  ///< by the library
  int generation_ = 0;             ///< of the reading that counts
  HintList* list_;
};

}  // namespace quillet
