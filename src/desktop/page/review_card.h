// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/models/review_text.h"
#include "desktop/page/wrapped_text.h"

namespace quillet {

/// Of how many lines the texts of a review may be.
struct ReviewFold {
  int title = 1;
  int body = std::numeric_limits<int>::max();  ///< and of the reply

  friend bool operator==(const ReviewFold&, const ReviewFold&) = default;
};

/// On what a review is painted.
enum class ReviewGround { sheet, selection };

/// One review set into a width: title and date, stars and who wrote it, what it says, and the
/// developer's reply, indented.
class ReviewCard {
 public:
  ReviewCard(ReviewText text, int width, const ReviewFold& fold, Look& look);

  [[nodiscard]] int height() const { return height_; }
  /// Whether the fold leaves something out.
  [[nodiscard]] bool isCut() const { return body_.isCut() || reply_.isCut(); }

  /// `corner` is the upper left one. `isMirrored`: in windows that are read from right to left.
  void paint(QPainter& painter, Look& look, const QPointF& corner, ReviewGround ground,
             bool isMirrored) const;

 private:
  struct Canvas;

  void paintHead(const Canvas& canvas) const;
  void paintByline(const Canvas& canvas) const;
  void paintReply(const Canvas& canvas) const;

  ReviewText text_;
  int width_;
  double line_ = 0;  ///< how high a line of small text is
  WrappedText title_;
  WrappedText body_;
  WrappedText reply_;
  double bylineTop_ = 0;
  double bodyTop_ = 0;
  double replyTop_ = 0;
  int height_ = 0;
};

}  // namespace quillet
