// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <cstddef>
#include <string>
#include <vector>

class QGridLayout;

namespace quillet {

class PageText;

/// A fact with what it is called.
struct NamedValue {
  QString name;
  QString value;
  QString whole = {};     ///< all of it, where the value is a part: in the tooltip and when copied
  std::string link = {};  ///< a web address that the value leads to; empty for none

  friend bool operator==(const NamedValue&, const NamedValue&) = default;
};

/// Names and values in two columns, where there is width for them. With the focus, the arrow keys
/// go from value to value; each can be copied, and links are followed with Enter.
class ValueGrid : public QWidget {
  Q_OBJECT

 public:
  explicit ValueGrid(QWidget* parent = nullptr);

  /// Those without a value are left out. False where none is left.
  bool show(std::vector<NamedValue> values);

 Q_SIGNALS:
  /// The user wants to follow a link.
  void opens(const std::string& link);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] QWidget* makeCell(const NamedValue& value);
  [[nodiscard]] int nameWidth() const;
  void fit();
  void arrange(int columns);
  void choose(std::size_t index);
  void openMenu(std::size_t index, const QPoint& at);
  void copy(std::size_t index);

  QGridLayout* layout_;
  std::vector<NamedValue> values_;
  std::vector<QWidget*> cells_;   ///< one for each value
  std::vector<PageText*> names_;  ///< in them
  int columns_ = 0;
  std::size_t chosen_ = 0;  ///< what the keys are at
};

}  // namespace quillet
