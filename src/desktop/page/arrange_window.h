// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QTimer>

#include "desktop/models/layout_string.h"
#include "desktop/services/live_settings.h"

class QListWidget;
class QPushButton;

namespace quillet {

class PageText;

/// Which blocks an app's page has, and in what order. What is changed here holds at once.
class ArrangeWindow : public QDialog {
  Q_OBJECT

 public:
  /// The settings outlive it.
  ArrangeWindow(LiveSettings& settings, QWidget* parent);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void showKept();
  void keep();
  void write(const std::vector<BlockChoice>& choices);
  void move(int by);
  [[nodiscard]] std::vector<BlockChoice> listed() const;

  LiveSettings& settings_;
  QListWidget* list_;
  PageText* remark_;
  QPushButton* reset_;
  QTimer change_;  ///< a row that is dragged is taken away here and put there
};

/// Opens the window before that of `parent`, or brings it up where it is open.
void arrangeBlocks(QWidget* parent, LiveSettings& settings);

}  // namespace quillet
