// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>
#include <QStringList>

namespace quillet {

/// A small line between the chips of a list and its rows. Hidden while it has nothing to tell.
class CaptionLine : public QLabel {
  Q_OBJECT

 public:
  explicit CaptionLine(QWidget* parent = nullptr);

  /// One text in several lengths, the whole one first: the longest that has room is shown.
  void setTexts(const QStringList& texts);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QStringList texts_;
};

}  // namespace quillet
