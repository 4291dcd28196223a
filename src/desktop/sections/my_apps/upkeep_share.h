// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>

#include "desktop/sections/my_apps/upkeep_columns.h"

namespace quillet {

/// How large a share of the apps has which verdict: a bar with its legend, and how old that is.
class UpkeepShare : public QLabel {
  Q_OBJECT

 public:
  explicit UpkeepShare(QWidget* parent);

  void show(const UpkeepTally& tally, Instant now);
  using QLabel::show;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  /// The legend takes as many lines as it needs.
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  struct Part {
    QString title;
    int apps = 0;
    Token color = Token::good;
  };

  void paintBar(QPainter& painter) const;
  [[nodiscard]] double widthOf(const Part& part) const;
  [[nodiscard]] std::vector<QPointF> placesIn(double width) const;
  void paintPart(QPainter& painter, const Part& part, QPointF place) const;

  std::vector<Part> parts_;
  QString age_;
};

}  // namespace quillet
