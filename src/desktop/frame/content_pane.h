// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSplitter>

#include "desktop/lists/section.h"

namespace quillet {

/// Where the app's page stands: beside the list where there is room, or as the user wants it.
enum class PageMode { byWidth, beside, alone };

/// Whether what a list shows has pages.
enum class Pages { some, none };

/// The list and the app's page: side by side, or one in the place of the other.
class ContentPane : public QSplitter {
  Q_OBJECT

 public:
  /// Owns both from now on.
  ContentPane(QWidget* list, QWidget* page);

  /// Which of the two is seen where they are not side by side.
  void setSpan(PageSpan span);
  [[nodiscard]] PageSpan span() const { return span_; }

  /// Where the rows are no apps the list has all the room.
  void setPages(Pages pages);

  /// How wide the list has to be beside the page.
  void setLeastList(int width);

  void setMode(PageMode mode);
  [[nodiscard]] PageMode mode() const { return mode_; }
  /// Whether they can be side by side at this width, whether or not they are.
  [[nodiscard]] bool hasRoomForBoth() const;
  [[nodiscard]] bool isBeside() const;
  /// The other way than now; where that is what the width asks for, the width decides again.
  void toggleBeside();
  [[nodiscard]] bool showsPageAlone() const {
    return pages_ == Pages::some && !isBeside() && span_ == PageSpan::alone;
  }

  /// The list's part of the width, 0 to 1.
  void setListShare(double share);
  [[nodiscard]] double listShare() const { return share_; }

 Q_SIGNALS:
  /// What is seen, or how it is divided.
  void arranged();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void arrange();
  void paintPageLater();
  void divide();

  QWidget* list_;
  QWidget* page_;
  PageMode mode_ = PageMode::byWidth;
  PageSpan span_ = PageSpan::beside;
  Pages pages_ = Pages::some;
  double share_;
  int leastList_ = kLeastListWidth;
};

}  // namespace quillet
