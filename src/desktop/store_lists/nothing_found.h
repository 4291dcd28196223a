// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/store_lists/relief.h"

class QPushButton;

namespace quillet {

class TextLabel;

/// What stands in the place of rows when a search found nothing, or the filters leave nothing.
class NothingFound : public QWidget {
  Q_OBJECT

 public:
  NothingFound();

  /// `relief` is offered; absent for nothing.
  void show(const QString& line, std::optional<Relief> relief, bool canClear);
  using QWidget::show;

 Q_SIGNALS:
  void clearAsked();
  void reliefAsked(const quillet::AppFilters& filters);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void fitRelief();

  TextLabel* line_;
  QPushButton* clear_;
  QPushButton* ease_;
  std::optional<Relief> relief_;
};

}  // namespace quillet
