// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <span>
#include <string>
#include <vector>

#include "desktop/models/row_table.h"

namespace quillet {

class Chip;
class ChipLine;
class TextLabel;

/// The chips above a list, and how many rows they leave. Those without room are in a menu.
class ChipBar : public QWidget {
  Q_OBJECT

 public:
  /// `name` is the list's.
  ChipBar(const QString& name, const RowTable& table);

  /// Shows these as set; nobody is told.
  void setChosen(const std::vector<std::string>& ids);
  /// `shown` of `all` rows.
  void setCount(int shown, int all);
  /// Stands in the place of the number while it is not hidden; owned from now on.
  void setBehind(QWidget* widget);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// By the user. In the order of the table.
  void chosenChanged(const std::vector<std::string>& ids);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int placeBehind();
  [[nodiscard]] std::vector<std::string> chosen() const;
  void tell();
  void clear();
  void arrange();

  std::span<const ChipChoice> choices_;
  CountTexts countTexts_;
  ChipLine* line_ = nullptr;
  TextLabel* count_;
  QWidget* behind_ = nullptr;
  bool isTold_ = true;  ///< whether a change is the user's
};

}  // namespace quillet
