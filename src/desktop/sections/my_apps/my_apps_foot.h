// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/models/row_filter_model.h"
#include "system/locale_formats.h"

namespace quillet {

class TextLabel;

/// The line below My Apps: what was paid, and at the other side what is told of scans.
class MyAppsFoot : public QWidget {
  Q_OBJECT

 public:
  MyAppsFoot();

  void showPaid(const QString& text);
  /// Goes where there is no room for it.
  void showScan(const QString& text);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void arrange();

  TextLabel* paid_;
  TextLabel* scan_;
};

/// "Paid $143.91 and €12.99 for 9 apps, 31 unknown."; empty where there is nothing to say. What
/// was free was not paid for.
[[nodiscard]] QString paidText(const QAbstractItemModel& rows, const LocaleFormats& formats);

}  // namespace quillet
