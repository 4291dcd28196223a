// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QWidget>

#include "desktop/models/page_facts.h"
#include "desktop/page/page_world.h"
#include "desktop/page/watch_options.h"

class QMenu;

namespace quillet {

class SplitPart;

enum class WatchButtonSize { usual, small };

/// Watches the app of a page, or says that it is watched; with a menu of what it alerts to.
class WatchButton : public QWidget {
  Q_OBJECT

 public:
  WatchButton(const PageWorld& world, WatchButtonSize size, QWidget* parent = nullptr);

  void show(const PageFacts& facts);
  /// Of an app that is watched.
  void openOptions(WatchOptionsStart start);

 private:
  void press();
  void showMenu();
  void fillMenu();
  void fillMuteMenu(QMenu& menu);
  void change(const WatchChange& change);
  void mute(std::optional<Instant> until);
  [[nodiscard]] WatchedNames names() const;

  PageWorld world_;
  PageFacts facts_;
  SplitPart* main_;
  SplitPart* arrow_;  ///< of an app that is watched
  QMenu* menu_;
  QPointer<WatchOptionsPopover> options_;
};

/// Watches the app of these facts, as the settings say.
void watchShown(const ViewWorld& view, const PageFacts& facts);
/// The lowest price that is recorded in the currency of today's; absent where none is, or it was
/// free, which an alert of its own tells.
[[nodiscard]] std::optional<double> lowestRecorded(const PageFacts& facts);

}  // namespace quillet
