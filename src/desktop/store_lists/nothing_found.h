// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QPushButton;

namespace quillet {

class TextLabel;

/// What stands in the place of rows when a search found nothing, or the filters leave nothing.
class NothingFound : public QWidget {
  Q_OBJECT

 public:
  NothingFound();

  /// `relief` says what would bring most back, and does it; empty for nothing.
  void show(const QString& line, const QString& relief, bool canClear);
  using QWidget::show;

 Q_SIGNALS:
  void clearAsked();
  void reliefAsked();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void fitRelief();

  TextLabel* line_;
  QPushButton* clear_;
  QPushButton* relief_;
  QString reliefText_;
};

}  // namespace quillet
