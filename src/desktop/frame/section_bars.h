// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStackedLayout>
#include <QWidget>

namespace quillet {

/// What a section has above its list and the page, below the toolbar: one bar at a time, or none.
class SectionBars : public QWidget {
  Q_OBJECT

 public:
  explicit SectionBars(QWidget* parent = nullptr);

  /// Owned from now on.
  void add(QWidget* bar);
  /// Null for none.
  void showBar(QWidget* bar);
  void takeFocus();

 private:
  QStackedLayout* layout_;
};

}  // namespace quillet
