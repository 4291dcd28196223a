// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QScrollArea>
#include <QTimer>
#include <vector>

#include "desktop/models/page_facts.h"
#include "desktop/models/place.h"
#include "desktop/page/page_world.h"

namespace quillet {

class Block;
class PageHeader;
class PageLayout;
class PageText;
class StickyHeader;

/// Everything about one app: the header, and blocks below it. It reads what the library knows of
/// the app once it is shown, and again after each change that touched it. What was shown before
/// stays until then.
class AppPage : public QScrollArea {
  Q_OBJECT

 public:
  explicit AppPage(const ViewWorld& world);

  /// Without an app: how many were chosen instead, none or several.
  void show(const std::optional<AppKey>& app, std::size_t chosen = 0);
  [[nodiscard]] const std::optional<AppKey>& app() const { return app_; }
  /// Asks anew for what is shown.
  void refresh();

 Q_SIGNALS:
  /// The facts of the app are shown.
  void filled();
  /// The user wants to go elsewhere: to the developer's apps.
  void goes(const quillet::Place& to);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  static Task<> read(QPointer<AppPage> page, AppKey app);

  void want();
  /// Absent where the library cannot be read.
  void take(const AppKey& app, const std::optional<PageFacts>& facts);
  void note(const LibraryChanges& changes);
  void fill(const PageFacts& facts);
  void fillHeader();
  void fillBlocks();
  void say(const QString& notice);
  void place();

  PageWorld world_;
  std::optional<AppKey> app_;
  std::optional<PageFacts> facts_;  ///< those that are seen
  bool isReading_ = false;
  bool isStale_ = false;  ///< what is being read was asked for too early

  QWidget* body_;
  PageLayout* layout_;
  PageHeader* header_;
  std::vector<Block*> blocks_;  ///< those of the table, once an app was shown
  PageText* notice_;
  StickyHeader* sticky_;
  QWidget* edge_;  ///< seen while the page itself has the keyboard's focus
  QTimer age_;     ///< what is said of times goes on
};

}  // namespace quillet
