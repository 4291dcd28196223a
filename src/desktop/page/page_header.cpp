// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/page_header.h"

#include <QEvent>
#include <algorithm>

#include "desktop/models/row_parts.h"
#include "desktop/page/artwork_label.h"
#include "desktop/page/link_button.h"
#include "desktop/page/mark_flow.h"
#include "desktop/page/page_metrics.h"
#include "desktop/page/page_text.h"

namespace quillet {

namespace {

constexpr int kArtwork = 96;
constexpr int kMarksGap = 12;
constexpr int kLinkGap = 16;

constexpr TextLook kNameLook{
    .type = kTitleType, .lineHeight = 28, .lines = 2, .use = TextUse::copy};
constexpr TextLook kTaglineLook{.type = kBodyType, .ink = Token::secondary, .lines = 2};
constexpr TextLook kSellerLook{.type = kControlType, .ink = Token::secondary, .lines = 1};

/// Where the texts stand beside the picture.
struct HeaderMetrics {
  int gap;          ///< between picture and texts
  int top;          ///< above the name
  int aboveSeller;  //
};
constexpr HeaderMetrics kNarrow{16, 4, 8};
constexpr HeaderMetrics kWide{20, 2, 4};
constexpr int kAboveTagline = 2;

}  // namespace

PageHeader::PageHeader(const PageWorld& world, QWidget* parent)
    : QWidget(parent),
      world_(world),
      artwork_(new ArtworkLabel(world.view.images, kArtwork, this)),
      name_(new PageText(kNameLook, this)),
      tagline_(new PageText(kTaglineLook, this)),
      seller_(new PageText(kSellerLook, this)),
      marks_(new MarkFlow(this)),
      store_(new LinkButton(tr("App Store"), kControlType, QStringLiteral("box-arrow-up-right"),
                            this)) {
  store_->setToolTip(tr("Open the app's page in the App Store"));
  connect(store_, &QAbstractButton::clicked, this, [this] { world_.view.prompts.openLink(link_); });
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void PageHeader::show(const PageFacts& facts, const std::vector<PageMark>& marks) {
  const QString name = nameLine(facts.name);
  artwork_->show(facts.artwork.value_or(""), name);
  name_->show(name);
  tagline_->show(plainLine(facts.cached ? facts.cached->tagline.value_or("") : ""));
  seller_->show(plainLine(facts.seller.value_or("")));
  marks_->show(marks);
  link_ = facts.link.value_or("");
  store_->setVisible(!link_.empty());
  arrange(width(), Move::yes);
  updateGeometry();
}

int PageHeader::nameBottom() const { return name_->geometry().bottom() + 1; }

QSize PageHeader::sizeHint() const { return {kWideContent, heightForWidth(kWideContent)}; }

void PageHeader::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange(width(), Move::yes);
}

bool PageHeader::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) {
    arrange(width(), Move::yes);
    updateGeometry();
  }
  return QWidget::event(event);
}

void PageHeader::place(QWidget* part, const QRect& rect, Move move) const {
  if (move == Move::yes)
    part->setGeometry(QStyle::visualRect(layoutDirection(), this->rect(), rect));
}

int PageHeader::arrange(int width, Move move) const {
  const bool isWide = width >= kWideContent;
  const HeaderMetrics& metrics = isWide ? kWide : kNarrow;
  const int left = kArtwork + metrics.gap;
  const QSize link = store_->isHidden() ? QSize(0, 0) : store_->sizeHint();
  const int beside = link.isEmpty() ? 0 : link.width() + kLinkGap;
  const int textWidth = std::max(1, width - left - (isWide ? beside : 0));

  place(artwork_, {0, 0, kArtwork, kArtwork}, move);
  int y = metrics.top;
  const auto add = [&](PageText* text, int above, int width) {
    if (text->isHidden()) return;
    const int height = text->heightForWidth(width);
    place(text, {left, y + above, width, height}, move);
    y += above + height;
  };
  add(name_, 0, textWidth);
  add(tagline_, kAboveTagline, textWidth);
  const int sellerTop = y + metrics.aboveSeller;
  add(seller_, metrics.aboveSeller, std::max(1, textWidth - (isWide ? 0 : beside)));
  if (!link.isEmpty()) {
    const int top = isWide ? metrics.top + (kMarksGap / 2) : sellerTop;
    place(store_, {{width - link.width(), top}, link}, move);
    y = std::max(y, top + link.height());
  }

  const int marksLeft = isWide ? left : 0;
  const int marksTop = (isWide ? y : std::max(y, kArtwork)) + kMarksGap;
  const int marksHeight = marks_->heightForWidth(width - marksLeft);
  place(marks_, {marksLeft, marksTop, width - marksLeft, marksHeight}, move);
  return std::max(kArtwork, marksTop + marksHeight);
}

}  // namespace quillet
