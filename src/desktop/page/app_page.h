// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QScrollArea>
#include <QTimer>
#include <set>
#include <string>
#include <vector>

#include "analysis/price_totals.h"
#include "desktop/models/place.h"
#include "desktop/page/page_controller.h"
#include "desktop/page/page_world.h"

class QAction;

namespace quillet {

class ChoiceSummary;
class ListStrip;
class PageBlocks;
class PageHeader;
class PageLayout;
class PageText;
class StickyHeader;

/// Everything about one app: the header, and blocks below it, as far as it is known by now. What
/// was shown before stays until anything of the app is known; a strip above tells how questions
/// about it stand.
class AppPage : public QScrollArea {
  Q_OBJECT

 public:
  explicit AppPage(const ViewWorld& world);

  void show(const std::optional<AppKey>& app);
  /// Several apps are chosen instead, at these prices.
  void showSeveral(const std::vector<KnownPrice>& prices);
  /// What can be done with several: a button each. They outlive the page.
  void setCommonActions(const std::vector<QAction*>& actions);
  [[nodiscard]] const std::optional<AppKey>& app() const { return controller_.app(); }
  /// Asks the store anew for all that is shown of the app.
  void refresh();
  /// Of the app that is shown, as far as it is known; null where none is.
  [[nodiscard]] const PageFacts* facts() const { return facts_ ? &*facts_ : nullptr; }
  /// Of the app that is shown, if it is watched.
  void openWatchOptions();
  /// Opens the window that orders and hides blocks.
  void arrangeBlocks();
  /// Whether the app is in a collection, and the page shows that.
  [[nodiscard]] bool hasNotes() const;
  /// Lets the user edit the note in that collection, or in the first that there is.
  void editNote(RowId collection);
  /// Whether there is that block of the app, as far as it is known by now.
  [[nodiscard]] bool shows(std::string_view block) const;
  /// Brings such a block in sight, and has it do what it is for.
  void goTo(std::string_view block);
  /// Whether the store is being asked about the app.
  [[nodiscard]] bool isAsking() const { return controller_.isAsking(); }

 Q_SIGNALS:
  /// The facts of the app are shown.
  void filled();
  /// The user wants to go elsewhere: to the developer's apps.
  void goes(const quillet::Place& to);
  /// Something was done of which nobody sees anything.
  void said(const QString& text);
  /// The user wants to put the app into a collection.
  void collectAsked();
  /// The user wants to compare the app with others.
  void compareAsked();
  /// Of shows().
  void blocksChanged();
  /// Of isAsking().
  void askingChanged();

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
  void fill();
  enum class Scroll { stays, top };
  void showFacts(Scroll scroll);
  void showState();
  void fillHeader();
  void follow(const std::set<std::string>& keys);
  void say(const QString& notice);
  void leaveSummary();
  void place();

  PageWorld world_;
  PageController controller_;
  std::optional<PageFacts> facts_;  ///< those that are seen

  ListStrip* strip_;
  QWidget* body_;
  PageLayout* layout_;
  PageHeader* header_;
  PageBlocks* blocks_;
  PageText* notice_;
  ChoiceSummary* summary_;  ///< of several
  StickyHeader* sticky_;
  bool wasAsking_ = false;
  QWidget* edge_;  ///< seen while the page itself has the keyboard's focus
  QTimer age_;     ///< what is said of times goes on
};

}  // namespace quillet
