// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QPointer>
#include <vector>

#include "desktop/models/watch_words.h"
#include "desktop/page/page_world.h"

namespace quillet {

class WatchOptionsForm;

enum class WatchOptionsStart { alerts, target };

/// The watch options of one app, over the page until the focus goes elsewhere. What was changed is
/// one edit, made once it closes, however it does. No window of its own: of those that pop up,
/// screen readers are told nothing.
class WatchOptionsPopover : public QWidget {
  Q_OBJECT

 public:
  /// In that window.
  WatchOptionsPopover(const PageWorld& world, const WatchedApp& app, std::optional<double> lowest,
                      QWidget* window);

  /// Or above the widget where there is no room in the window.
  void openBelow(const QWidget& widget, WatchOptionsStart start);

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void fit();
  void keep();
  [[nodiscard]] bool holds(const QObject* object) const;

  PageWorld world_;
  WatchedApp app_;
  WatchOptionsForm* form_;
  QPointer<const QWidget> below_;
  QPointer<QWidget> before_;  ///< what had the focus
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
