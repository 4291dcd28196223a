// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/story_card.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

#include "base/urls.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/models/row_parts.h"
#include "desktop/page/artwork_label.h"
#include "desktop/page/wrapped_text.h"
#include "store/records/sized_picture.h"

namespace quillet {

namespace {

constexpr double kReadable = 4.5;
constexpr int kArtwork = 44;
constexpr int kAcross = 14;
constexpr int kAround = 12;
constexpr int kGap = 12;
constexpr int kLeastHeight = 84;
constexpr double kCorner = 8;
constexpr double kBetween = 2;

constexpr WrappedStyle kLabel{kGroupType, 14, 2};
constexpr WrappedStyle kTitle{{14, 600}, 18, 2};
constexpr WrappedStyle kTagline{kFactType, 16, 2};

}  // namespace

std::optional<QColor> storyColor(const std::optional<std::string>& hex) {
  if (!hex || hex->size() != 6) return {};
  bool isNumber = false;
  const QString digits = QString::fromStdString(*hex);
  const uint value = digits.toUInt(&isNumber, 16);
  if (!isNumber) return {};
  return QColor::fromRgb(value);
}

QColor inkOn(const QColor& background) {
  // Black or white reaches 4.58 on any colour; a softer one is taken where it is enough.
  constexpr std::array<QRgb, 3> kInks{0xFFFFFF, 0x1B1D22, 0x000000};
  for (const QRgb ink : kInks)
    if (contrastRatio(QColor::fromRgb(ink), background) >= kReadable) return QColor::fromRgb(ink);
  return Qt::white;
}

StoryCard::StoryCard(const EditorialStory& story, ImageStore& images, QWidget* parent)
    : QLabel(parent),
      color_(storyColor(story.backgroundHex)),
      label_(plainLine(story.label)),
      title_(plainLine(story.title)),
      tagline_(plainLine(story.tagline)) {
  QStringList texts{label_, title_, tagline_};
  texts.removeAll(QString());
  setTextFormat(Qt::PlainText);
  setText(texts.join(QStringLiteral(", ")));
  label_ = label_.toUpper();
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
  const std::string address = artworkAddress(story.artworkTemplate.value_or(""));
  if (!isWebAddress(address)) return;
  artwork_ = new ArtworkLabel(images, kArtwork, this);
  artwork_->show(address, title_);
}

double StoryCard::textWidth(int width) const {
  return std::max(1, width - 2 * kAcross - (artwork_ == nullptr ? 0 : kGap + kArtwork));
}

std::vector<WrappedText> StoryCard::textsFor(int width) const {
  const int room = static_cast<int>(textWidth(width));
  std::vector<WrappedText> texts;
  const auto add = [&](const QString& text, const WrappedStyle& style) {
    if (!text.isEmpty()) texts.emplace_back(text, style, room, lookOf(*this).text);
  };
  add(label_, kLabel);
  add(title_, kTitle);
  add(tagline_, kTagline);
  return texts;
}

double StoryCard::heightOf(const std::vector<WrappedText>& texts) {
  double height = texts.empty() ? 0 : -kBetween;
  for (const WrappedText& text : texts) height += kBetween + text.height();
  return height;
}

int StoryCard::heightForWidth(int width) const {
  return std::max(kLeastHeight,
                  static_cast<int>(std::ceil(heightOf(textsFor(width)))) + 2 * kAround);
}

void StoryCard::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  if (artwork_ != nullptr) artwork_->move(width() - kAcross - kArtwork, (height() - kArtwork) / 2);
}

void StoryCard::paintEvent(QPaintEvent* /*event*/) {
  Look& look = lookOf(*this);
  QPainter painter(this);
  const QColor background = color_.value_or(look[Token::raised]);
  // A card as light as the sheet has an edge.
  const bool isFaint = contrastRatio(background, look[Token::base]) < 1.1;
  paintBox(painter, rect(), kCorner, background,
           {isFaint ? look[Token::edge] : QColor(Qt::transparent)});
  const QColor ink = inkOn(background);
  const std::vector<WrappedText> texts = textsFor(width());
  double top = std::floor((height() - heightOf(texts)) / 2);
  for (const WrappedText& text : texts) {
    text.paint(painter, look, {kAcross, top}, ink);
    top += text.height() + kBetween;
  }
}

}  // namespace quillet
