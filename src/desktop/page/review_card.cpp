// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/review_card.h"

#include <QPainter>
#include <cmath>

#include "desktop/look/marks.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr TypeStyle kTitle = kBodyType.weighing(600);
constexpr TypeStyle kAside = kCaptionType.tabular();
constexpr TypeStyle kReplyHead = kCaptionType.weighing(600);
constexpr double kLine = 18;
constexpr double kAsideLine = 16;
constexpr double kStar = 11;
constexpr double kStarsGap = 6;
constexpr double kDateGap = 8;
constexpr double kAboveByline = 1;
constexpr double kBelowByline = 3;
constexpr double kAboveReply = 8;
constexpr double kReplyIndent = 14;
constexpr double kReplyBar = 2;

}  // namespace

struct ReviewCard::Canvas {
  QPainter& painter;
  Look& look;
  QPointF corner;
  double width;
  bool isSelected;
  bool isMirrored;

  /// Neither is to stand on the colour of a selection.
  [[nodiscard]] const QColor& quiet() const {
    return look[isSelected ? Token::secondary : Token::tertiary];
  }
  [[nodiscard]] QRectF at(double x, double y, double itsWidth, double height) const {
    const double left = isMirrored ? width - x - itsWidth : x;
    return {corner.x() + left, corner.y() + y, itsWidth, height};
  }
  void line(const QRectF& place, const QString& text, const TypeStyle& type,
            const QColor& ink) const {
    const TextAnchor anchor = isMirrored ? TextAnchor::right : TextAnchor::left;
    look.text.drawElided(painter, {place, anchor}, text, type, ink);
  }
};

ReviewCard::ReviewCard(ReviewText text, int width, const ReviewFold& fold, Look& look)
    : text_(std::move(text)), width_(width), line_(std::ceil(kAsideLine * look.growth())) {
  const double date = text_.date.isEmpty() ? 0 : kDateGap + look.text.width(text_.date, kAside);
  title_ = WrappedText(text_.title, {kTitle, kLine, fold.title},
                       width - static_cast<int>(std::ceil(date)), look.text);
  bylineTop_ = title_.height() + (title_.lines() > 0 ? kAboveByline : 0);
  // A date without a title has to stand somewhere.
  bodyTop_ = bylineTop_ + line_ + kBelowByline;
  body_ = WrappedText(text_.body, {kBodyType, kLine, fold.body}, width, look.text);
  replyTop_ = bodyTop_ + body_.height() + kAboveReply;
  reply_ = WrappedText(text_.reply, {kBodyType, kLine, fold.body},
                       width - static_cast<int>(kReplyIndent), look.text);
  const bool hasReply = !text_.replyHead.isEmpty();
  const double end = hasReply ? replyTop_ + line_ + reply_.height() : bodyTop_ + body_.height();
  height_ = static_cast<int>(std::ceil(end));
}

void ReviewCard::paint(QPainter& painter, Look& look, const QPointF& corner, ReviewGround ground,
                       bool isMirrored) const {
  const Canvas canvas{
      painter,   look, corner, static_cast<double>(width_), ground == ReviewGround::selection,
      isMirrored};
  paintHead(canvas);
  paintByline(canvas);
  body_.paint(painter, look, corner + QPointF(0, bodyTop_), look[Token::secondary]);
  if (!text_.replyHead.isEmpty()) paintReply(canvas);
}

void ReviewCard::paintHead(const Canvas& canvas) const {
  const double date = canvas.look.text.width(text_.date, kAside);
  const double titleLeft = canvas.isMirrored ? date + (date > 0 ? kDateGap : 0) : 0;
  title_.paint(canvas.painter, canvas.look, canvas.corner + QPointF(titleLeft, 0),
               canvas.look[Token::text]);
  const double top = title_.lines() > 0 ? 0 : bylineTop_;
  const double height = title_.lines() > 0 ? kLine * canvas.look.text.scale() : line_;
  canvas.look.text.draw(canvas.painter, {canvas.at(width_ - date, top, date, height)}, text_.date,
                        kAside, canvas.quiet());
}

void ReviewCard::paintByline(const Canvas& canvas) const {
  double x = 0;
  Look& look = canvas.look;
  if (text_.stars) {
    const double size = std::floor(kStar * look.growth());
    const QRectF stars =
        canvas.at(0, bylineTop_ + std::floor((line_ - size) / 2), starsWidth(size), size);
    const Token empty = canvas.isSelected ? Token::selectedEmptyStar : Token::emptyStar;
    paintStars(canvas.painter, stars.topLeft(), *text_.stars * 2, size,
               {look[canvas.isSelected ? Token::secondary : Token::rowStar], look[empty]});
    x = starsWidth(size) + kStarsGap;
  }
  const double date = title_.lines() > 0 ? 0 : look.text.width(text_.date, kAside) + kDateGap;
  canvas.line(canvas.at(x, bylineTop_, width_ - x - date, line_), text_.byline, kAside,
              canvas.quiet());
}

void ReviewCard::paintReply(const Canvas& canvas) const {
  Look& look = canvas.look;
  const QRectF bar = canvas.at(0, replyTop_, kReplyBar, line_ + reply_.height());
  paintBox(canvas.painter, bar, kReplyBar / 2,
           look[canvas.isSelected ? Token::selectedEmptyStar : Token::line]);
  canvas.line(canvas.at(kReplyIndent, replyTop_, width_ - kReplyIndent, line_), text_.replyHead,
              kReplyHead, look[Token::secondary]);
  const double left = canvas.isMirrored ? 0 : kReplyIndent;
  reply_.paint(canvas.painter, look, canvas.corner + QPointF(left, replyTop_ + line_),
               look[Token::secondary]);
}

}  // namespace quillet
