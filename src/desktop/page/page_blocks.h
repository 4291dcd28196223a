// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QTimer>
#include <vector>

#include "desktop/page/block_table.h"

class QScrollArea;

namespace quillet {

class PageLayout;

/// The blocks of a page, as the user arranged them. One is made and filled once it is within a
/// screen of what is seen, the others when nothing else is to be done, one after the other; it may
/// ask the store when it is near. Those that the user hides are never made. What is read stays in
/// its place on screen, whatever comes or goes above it.
class PageBlocks : public QObject {
  Q_OBJECT

 public:
  /// They stand in `layout`, which is the page's body that `view` scrolls. All outlive them.
  PageBlocks(const PageWorld& world, QScrollArea& view, PageLayout& layout);

  /// Again as more is known of the app.
  void show(const PageFacts& facts);
  /// There is no app.
  void clear();
  /// Whether blocks may ask the store by now.
  void setMayAsk(bool may);
  /// Lets them ask anew.
  void askAgain();

  /// After what is seen of the page became another part of it.
  void look();
  /// Fills all that are left.
  void finish();
  /// Whether the user has not hidden the block of that ID.
  [[nodiscard]] bool has(std::string_view id) const;

  /// Whether that block is there and has something to say.
  [[nodiscard]] bool shows(std::string_view id) const;
  /// Scrolls to the block, and has it act. Nothing where it is not shown.
  void goTo(std::string_view id);

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  /// Of shows(), for one that actions lead to.
  void shownChanged();

 private:
  struct Slot {
    const BlockRow* row = nullptr;
    Block* block = nullptr;  ///< once it was made
    bool isFilled = false;   ///< with the facts that are shown
    bool hasAsked = false;
    Freshness freshness = Freshness::known;  ///< of what it asks for next
  };
  /// Where a block is, against what is seen and a screen on either side.
  enum class Stand { above, near, below };
  /// What of the page shall stay in its place on screen.
  struct Anchor {
    const QWidget* widget = nullptr;
    int above = 0;
  };

  void arrange();
  void fillSeen();
  void fillNext();
  void fill(Slot& slot);
  void make(Slot& slot);
  void letNearAsk();
  [[nodiscard]] Slot* nextUnfilled();
  [[nodiscard]] bool isActedOn(const QObject* block) const;
  void setMargins(const Slot& slot) const;
  [[nodiscard]] int endOfView() const;
  [[nodiscard]] Stand standOf(const Slot& slot) const;
  [[nodiscard]] Anchor anchor() const;
  void bringBack(const Anchor& anchor);

  PageWorld world_;
  QScrollArea& view_;
  PageLayout& layout_;
  const QWidget* page_;  ///< that it lays out
  std::vector<Slot> slots_;
  std::optional<PageFacts> facts_;
  Anchor held_;  ///< what was seen last, wherever it is moved to
  bool mayAsk_ = false;
  bool isFilling_ = false;
  QTimer idle_;
};

}  // namespace quillet
