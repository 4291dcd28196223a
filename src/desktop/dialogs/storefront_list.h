// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QListView>
#include <QStandardItemModel>
#include <QWidget>
#include <string>

namespace quillet {

class SearchField;

/// One choice of all storefronts: a field that finds them, and a list of them. The arrow keys move
/// the choice from the field as well.
class StorefrontList : public QWidget {
  Q_OBJECT

 public:
  /// `first`: what stands above them for choosing none; empty for nothing.
  explicit StorefrontList(const QString& first = {});

  /// The one that is chosen; empty for none. Of a text that means none, the one before it.
  [[nodiscard]] const std::string& chosen() const { return chosen_; }
  /// Shows all of them, this one chosen.
  void choose(const std::string& code);
  void takeFocus();

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 Q_SIGNALS:
  /// The user is done with choosing: Enter, or a click.
  void settled();
  /// Likewise, by Enter alone.
  void entered();

 private:
  void fill(const QString& text);
  void takeCurrent(const QModelIndex& current);

  QString first_;
  SearchField* field_;
  QListView* list_;
  QStandardItemModel shown_;
  std::string chosen_;
};

}  // namespace quillet
