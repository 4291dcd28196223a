// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/page_header.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QToolButton>
#include <algorithm>

#include "base/urls.h"
#include "desktop/look/button_look.h"
#include "desktop/models/app_texts.h"
#include "desktop/models/row_parts.h"
#include "desktop/page/artwork_label.h"
#include "desktop/page/link_button.h"
#include "desktop/page/mark_flow.h"
#include "desktop/page/page_metrics.h"
#include "desktop/page/page_text.h"
#include "desktop/page/text_growth.h"
#include "desktop/page/watch_button.h"

namespace quillet {

namespace {

constexpr int kArtwork = 96;
constexpr int kMarksGap = 12;
constexpr int kActionsGap = 12;
constexpr int kActionGap = 8;
constexpr int kLinkGap = 16;
constexpr int kMore = 28;
constexpr double kChevron = 10;
constexpr double kChevronGap = 4;

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
constexpr int kLeastTexts = 240;  // wide, beside the buttons

}  // namespace

PageHeader::PageHeader(const PageWorld& world, QWidget* parent)
    : QWidget(parent),
      world_(world),
      artwork_(new ArtworkLabel(world.view.images, kArtwork, this)),
      name_(new PageText(kNameLook, this)),
      tagline_(new PageText(kTaglineLook, this)),
      seller_(new PageText(kSellerLook, this)),
      developer_(new LinkButton({}, kControlType, QStringLiteral("chevron-right"), this)),
      marks_(new MarkFlow(this)),
      store_(new LinkButton(tr("App Store"), kControlType, QStringLiteral("box-arrow-up-right"),
                            this)),
      more_(new QToolButton(this)),
      actions_(new QWidget(this)),
      watch_(new WatchButton(world, WatchButtonSize::usual)),
      compare_(new QPushButton(actions_)) {
  auto* actions = new QHBoxLayout(actions_);
  actions->setContentsMargins({});
  actions->setSpacing(kActionGap);
  actions->addWidget(watch_);
  auto* collect = new QPushButton(tr("Add to Collection"), actions_);
  setIconName(*collect, QStringLiteral("plus-lg"));
  connect(collect, &QPushButton::clicked, this, [this] { world_.collect(); });
  actions->addWidget(collect);
  setIconName(*compare_, QStringLiteral("layout-three-columns"));
  compare_->setAccessibleName(tr("Compare"));
  connect(compare_, &QPushButton::clicked, this, [this] { world_.compare(); });
  actions->addWidget(compare_);
  developer_->setIconMetrics(kChevron, kChevronGap);
  developer_->setToolTip(tr("What else this developer sells"));
  connect(developer_, &QAbstractButton::clicked, this, &PageHeader::showDeveloper);
  setIconName(*more_, QStringLiteral("three-dots"));
  more_->setAccessibleName(tr("More about this app"));
  more_->setToolTip(tr("More"));
  more_->setFixedSize(kMore, kMore);
  more_->setPopupMode(QToolButton::InstantPopup);
  auto* menu = new QMenu(more_);
  more_->setMenu(menu);
  connect(menu, &QMenu::aboutToShow, this, &PageHeader::fillMenu);
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
  facts_ = facts;
  watch_->show(facts);
  showSeller();
  marks_->show(marks);
  link_ = facts.link.value_or("");
  store_->setVisible(!link_.empty());
  fitActions();
  arrange(width(), Move::yes);
  updateGeometry();
}

void PageHeader::showSeller() {
  const QString seller = plainLine(facts_.seller.value_or(""));
  const bool isLink = !seller.isEmpty() && facts_.cached && facts_.cached->artistId;
  seller_->show(isLink ? QString() : seller);
  developer_->setVisible(isLink);
  if (isLink) developer_->setPlainText(seller);
}

void PageHeader::showDeveloper() {
  StoreQuery query;
  query.developer = Developer{*facts_.cached->artistId, facts_.seller.value_or("")};
  query.request.country = facts_.app.country;
  const bool isForMac = facts_.cached->kind == kMacSoftwareKind;
  query.request.platform = facts_.listedAs.value_or(isForMac ? Platform::mac : Platform::iphone);
  if (facts_.store) query.request.platform = facts_.store->app.platform;
  Q_EMIT goes({.section = SectionId::search, .what = std::move(query)});
}

/// What there is nothing to do with is not there.
void PageHeader::fillMenu() {
  QMenu& menu = *more_->menu();
  menu.clear();
  const auto add = [&](const QString& text, auto run) {
    connect(menu.addAction(text), &QAction::triggered, this, run);
  };
  add(tr("Copy Link"), [this] {
    const QString name = facts_.name.empty() ? QString() : nameLine(facts_.name);
    QGuiApplication::clipboard()->setMimeData(appLinks({{facts_.app, name}}).release());
    Q_EMIT said(tr("Link copied"));
  });
  add(tr("Copy as Command"), [this] {
    QGuiApplication::clipboard()->setText(infoCommand(facts_.app));
    Q_EMIT said(tr("Command copied"));
  });
  const std::string website = facts_.cached ? facts_.cached->sellerUrl.value_or("") : "";
  if (isWebAddress(website)) {
    add(tr("Developer's Website"), [this, website] { world_.view.prompts.openLink(website); });
  }
  menu.addSeparator();
  add(tr("Arrange App Page…"), [this] { Q_EMIT arrangeAsked(); });
}

int PageHeader::nameBottom() const { return name_->geometry().bottom() + 1; }

QSize PageHeader::sizeHint() const { return {kWideContent, heightForWidth(kWideContent)}; }

void PageHeader::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  fitActions();
  arrange(width(), Move::yes);
}

/// The last of the buttons is its icon alone where the row has no room for more.
void PageHeader::fitActions() {
  compare_->setText(tr("Compare"));
  compare_->setToolTip({});
  if (actions_->sizeHint().width() <= width()) return;
  compare_->setText({});
  compare_->setToolTip(tr("Compare"));
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
  const QSize link = store_->isHidden() ? QSize(0, 0) : store_->sizeHint();
  const QSize actions = actions_->sizeHint();
  const int buttons = kMore + (link.isEmpty() ? 0 : link.width() + kLinkGap) + kLinkGap;
  const int besideWide = buttons + actions.width() + kActionGap;
  const int room = width - kArtwork - kWide.gap - besideWide;
  const Look& look = lookOf(*this);
  const bool isWide = width >= grownBy(look, kWideContent) && room >= grownBy(look, kLeastTexts);
  const HeaderMetrics& metrics = isWide ? kWide : kNarrow;
  const int left = kArtwork + metrics.gap;
  const int beside = isWide ? besideWide : buttons;
  const int textWidth = std::max(1, width - left - (isWide ? beside : 0));

  place(artwork_, {0, 0, kArtwork, kArtwork}, move);
  int y = metrics.top;
  const auto add = [&](PageText* text, int above) {
    if (text->isHidden()) return;
    const int height = text->heightForWidth(textWidth);
    place(text, {left, y + above, textWidth, height}, move);
    y += above + height;
  };
  add(name_, 0);
  add(tagline_, kAboveTagline);
  const int sellerWidth = std::max(1, textWidth - (isWide ? 0 : beside));
  const int sellerHeight = developer_->sizeHint().height();
  y += metrics.aboveSeller;
  if (!seller_->isHidden()) place(seller_, {left, y, sellerWidth, sellerHeight}, move);
  if (!developer_->isHidden()) {
    const int linkWidth = std::min(sellerWidth, developer_->sizeHint().width());
    place(developer_, {left, y, linkWidth, sellerHeight}, move);
  }
  placeButtons(isWide ? metrics.top : y - (kMore - sellerHeight) / 2, width, move);
  y += sellerHeight;

  const int marksLeft = isWide ? left : 0;
  const int marksTop = (isWide ? y : std::max(y, kArtwork)) + kMarksGap;
  const int marksHeight = marks_->heightForWidth(width - marksLeft);
  place(marks_, {marksLeft, marksTop, width - marksLeft, marksHeight}, move);
  const int bottom = std::max(kArtwork, marksTop + marksHeight);
  if (isWide) {
    place(actions_, {{width - buttons - actions.width(), metrics.top}, actions}, move);
    return bottom;
  }
  place(actions_, {{0, bottom + kActionsGap}, actions}, move);
  return bottom + kActionsGap + actions.height();
}

/// At the end of the line whose top is given.
void PageHeader::placeButtons(int top, int width, Move move) const {
  place(more_, {width - kMore, top, kMore, kMore}, move);
  if (store_->isHidden()) return;
  const QSize link = store_->sizeHint();
  place(store_,
        {{width - kMore - kLinkGap / 2 - link.width(), top + (kMore - link.height()) / 2}, link},
        move);
}

}  // namespace quillet
