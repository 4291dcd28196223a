// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/models/page_facts.h"
#include "desktop/models/place.h"
#include "desktop/page/page_world.h"

class QHBoxLayout;
class QPushButton;
class QToolButton;

namespace quillet {

class ArtworkLabel;
class LinkButton;
class MarkFlow;
class PageText;
class WatchButton;
struct PageMark;

/// The uppermost part of an app's page: picture, name, maker and what is to be known at a glance.
class PageHeader : public QWidget {
  Q_OBJECT

 public:
  explicit PageHeader(const PageWorld& world, QWidget* parent = nullptr);

  void show(const PageFacts& facts, const std::vector<PageMark>& marks);
  [[nodiscard]] WatchButton& watch() const { return *watch_; }
  /// The lower edge of the name.
  [[nodiscard]] int nameBottom() const;

  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override { return arrange(width, Move::no); }
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }

 Q_SIGNALS:
  void goes(const quillet::Place& to);
  /// The user wants other blocks, or an other order of them.
  void arrangeAsked();
  /// Something was done of which nobody sees anything.
  void said(const QString& text);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

 private:
  enum class Move { no, yes };

  void showSeller();
  void showDeveloper();
  void fillMenu();
  void fitActions();

  /// Returns how high all is in that width; moves the parts to their places where it is to.
  int arrange(int width, Move move) const;
  void placeButtons(int top, int width, Move move) const;
  void place(QWidget* part, const QRect& rect, Move move) const;

  PageWorld world_;
  PageFacts facts_;
  std::string link_;
  ArtworkLabel* artwork_;
  PageText* name_;
  PageText* tagline_;
  PageText* seller_;
  LinkButton* developer_;  ///< in its place, where the store names one
  MarkFlow* marks_;
  LinkButton* store_;
  QToolButton* more_;
  QWidget* actions_;  ///< what can be done with the app, in a row
  WatchButton* watch_;
  QPushButton* compare_;
};

}  // namespace quillet
