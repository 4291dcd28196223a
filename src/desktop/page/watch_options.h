// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <vector>

#include "desktop/models/watch_words.h"
#include "desktop/page/page_world.h"

namespace quillet {

class WatchOptionsForm;

enum class WatchOptionsStart { alerts, target };

/// The watch options of one app, over the page. What was changed is one edit, made once it closes,
/// however it does.
class WatchOptionsPopover : public QWidget {
  Q_OBJECT

 public:
  WatchOptionsPopover(const PageWorld& world, const WatchedApp& app, std::optional<double> lowest,
                      QWidget* parent);

  /// Or above the widget where there is no room on the screen.
  void openBelow(const QWidget& widget, WatchOptionsStart start);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void fit();
  void keep();

  PageWorld world_;
  WatchedApp app_;
  WatchOptionsForm* form_;
  const QWidget* below_ = nullptr;
  bool isKept_ = false;
};

/// The same for several apps, or for one where its page is not seen.
class WatchOptionsDialog : public QDialog {
  Q_OBJECT

 public:
  WatchOptionsDialog(const PageWorld& world, std::vector<WatchedApp> apps,
                     std::optional<double> lowest, QWidget* parent);

 private:
  void keep();

  PageWorld world_;
  std::vector<WatchedApp> apps_;
  WatchOptionsForm* form_;
};

}  // namespace quillet
