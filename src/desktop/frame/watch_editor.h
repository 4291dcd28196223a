// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <set>

#include "desktop/frame/guide.h"
#include "desktop/models/app_texts.h"
#include "desktop/models/watch_words.h"
#include "desktop/page/page_world.h"

class QMenu;

namespace quillet {

/// What the user does about watching the chosen apps, wherever they are listed: watches them, or
/// stops it, and says what is alerted to.
class WatchEditor : public QObject {
  Q_OBJECT

 public:
  /// All outlive the editor; dialogs stand before `window`.
  WatchEditor(const ViewWorld& world, const Guide& guide, AppPage& page, QWidget& window);

  /// The user chose others, or may have.
  void follow();

  /// Whether an app is chosen.
  [[nodiscard]] bool canToggle() const { return !chosen_.empty(); }
  /// "Watch", "Watch 3 Apps", "Stop Watching", "Stop Watching 3 Apps".
  [[nodiscard]] QString toggleText() const;
  /// Watches those that are not watched; stops it where all are.
  void toggle();
  /// Watches them, wherever they are dragged from.
  void add(const std::vector<NamedKey>& apps);

  /// Whether one of them is watched.
  [[nodiscard]] bool canChange() const { return !watched_.empty(); }
  void showOptions();
  void mute(MuteSpan span);
  void turnOnAlerts();
  /// Whether one of them is muted.
  [[nodiscard]] bool isAnyMuted() const;

 Q_SIGNALS:
  /// Others are chosen, or are watched now.
  void changed();

 private:
  void want();
  static Task<> read(QPointer<WatchEditor> editor, std::vector<AppKey> apps);
  void take(std::vector<WatchedApp> watched);
  [[nodiscard]] std::vector<NamedKey> unwatched() const;
  [[nodiscard]] EditStep watchingThese(const std::vector<NamedKey>& apps) const;
  void watch(const std::vector<NamedKey>& apps, const QString& unchanged);
  [[nodiscard]] std::size_t unwatchedCount() const { return chosen_.size() - watched_.size(); }
  [[nodiscard]] std::vector<AppKey> watchedKeys() const;
  [[nodiscard]] WatchedNames names() const;
  void setMute(std::optional<Instant> until);

  PageWorld world_;
  const Guide& guide_;
  AppPage& page_;
  QWidget& window_;
  std::vector<AppKey> chosen_;
  std::vector<WatchedApp> watched_;  ///< those of them
  bool isKnown_ = true;              ///< which those are
  bool isReading_ = false;
  bool isStale_ = false;     ///< what is being read was asked for too early
  bool willToggle_ = false;  ///< as soon as it is known
};

/// For how long alerts of the chosen apps are muted, in the place of a row of the menu bar.
[[nodiscard]] QMenu* makeMuteMenu(WatchEditor& editor, QWidget* parent);

}  // namespace quillet
