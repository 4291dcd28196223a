// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <vector>

class QGridLayout;

namespace quillet {

/// A fact with what it is called.
struct NamedValue {
  QString name;
  QString value;

  friend bool operator==(const NamedValue&, const NamedValue&) = default;
};

/// Names and values in two columns, where there is width for them; values can be copied.
class ValueGrid : public QWidget {
  Q_OBJECT

 public:
  explicit ValueGrid(QWidget* parent = nullptr);

  /// Those without a value are left out. False where none is left.
  bool show(std::vector<NamedValue> values);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void arrange(int columns);

  QGridLayout* layout_;
  std::vector<NamedValue> values_;
  std::vector<QWidget*> cells_;  ///< one for each value
  int columns_ = 0;
};

}  // namespace quillet
