// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/picture_strip.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "desktop/look/focus_ring.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/page/picture_paint.h"
#include "store/records/sized_picture.h"

namespace quillet {

namespace {

// A picture that is wider than this, or narrower, is cut: nobody makes such screenshots.
constexpr double kWidest = 4;
constexpr double kNarrowest = 0.2;

constexpr int kButton = 32;
constexpr int kButtonInset = 12;
constexpr double kButtonIcon = 14;
constexpr double kAsideOpacity = 0.6;

/// A picture that can be opened, and no group of other things.
class StripAccess : public QAccessibleWidget {
 public:
  explicit StripAccess(PictureStrip& strip)
      : QAccessibleWidget(&strip, QAccessible::Graphic), strip_(strip) {}

  [[nodiscard]] QStringList actionNames() const override {
    return QStringList{pressAction()} + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& action) override {
    if (action != pressAction()) return QAccessibleWidget::doAction(action);
    if (strip_.count() > 0) Q_EMIT strip_.opened();
  }

 private:
  PictureStrip& strip_;
};

QAccessibleInterface* accessOf(const QString& /*type*/, QObject* object) {
  auto* strip = qobject_cast<PictureStrip*>(object);
  return strip == nullptr ? nullptr : new StripAccess(*strip);
}

double bounded(double ratio) { return std::clamp(ratio, kNarrowest, kWidest); }

}  // namespace

PictureStrip::PictureStrip(ImageStore& images, const StripLook& look, QWidget* parent)
    : QWidget(parent), images_(images), look_(look) {
  QAccessible::installFactory(&accessOf);  // once: Qt knows those that it has
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  keepRingInside(*this);
  connect(&images, &ImageStore::arrived, this, &PictureStrip::take);
}

void PictureStrip::show(Platform platform, const std::vector<std::string>& addresses) {
  if (platform == platform_ && addresses == addresses_) return;
  platform_ = platform;
  addresses_ = addresses;
  ratios_.assign(addresses_.size(), 0);
  held_.clear();
  pressed_.reset();
  current_ = 0;
  offset_ = 0;
  arrange();
  tell();
}

void PictureStrip::setCurrent(std::size_t index) {
  if (index >= count()) return;
  current_ = index;
  bringIntoView(index);
  tell();
  update();
}

void PictureStrip::setAwaiting(bool isAwaiting) {
  isAwaiting_ = isAwaiting;
  setFocusPolicy(isAwaiting ? Qt::NoFocus : Qt::StrongFocus);
  update();
}

void PictureStrip::setEndRoom(int pixels) {
  endRoom_ = pixels;
  scrollTo(offset_);
}

/// For assistive technology, which reads it anew when it changes under the focus.
void PictureStrip::tell() {
  setAccessibleName(count() == 0 ? QString() : pictureTitle(current_, count(), platform_));
}

ImageKey PictureStrip::keyOf(const std::string& address, Platform platform, int height,
                             double ratio) {
  const double shape = bounded(namedRatio(address).value_or(usualRatio(platform)));
  return {address, static_cast<int>(std::ceil(height * ratio * std::max(1.0, shape)))};
}

ImageKey PictureStrip::keyOf(std::size_t index) const {
  return keyOf(addresses_[index], platform_, look_.height, devicePixelRatioF());
}

/// Those of an app are mostly alike: of one that did not come, that of any other is the best guess.
double PictureStrip::ratioOf(std::size_t index) const {
  if (ratios_[index] > 0) return ratios_[index];
  const auto known = std::ranges::find_if(ratios_, [](double ratio) { return ratio > 0; });
  if (known != ratios_.end()) return *known;
  return bounded(namedRatio(addresses_[index]).value_or(usualRatio(platform_)));
}

/// What is seen first stays where it is.
void PictureStrip::arrange() {
  const auto first = seen(0);
  const int before = first.empty() ? 0 : lefts_[first.front()];
  lefts_.assign(1, 0);
  for (std::size_t i = 0; i < count(); ++i) {
    const int width = static_cast<int>(std::lround(look_.height * ratioOf(i)));
    lefts_.push_back(lefts_.back() + std::max(1, width) + look_.gap);
  }
  if (!first.empty() && first.front() < count()) offset_ += lefts_[first.front()] - before;
  scrollTo(offset_);
  update();
}

int PictureStrip::contentWidth() const {
  return lefts_.size() < 2 ? 0 : lefts_.back() - look_.gap + endRoom_;
}

std::vector<std::size_t> PictureStrip::seen(std::size_t more) const {
  std::vector<std::size_t> indexes;
  if (lefts_.size() != count() + 1) return indexes;  // of those that were shown before
  std::size_t first = count();
  std::size_t end = 0;
  for (std::size_t i = 0; i < count(); ++i) {
    const bool isSeen = lefts_[i + 1] - look_.gap > offset_ && lefts_[i] < offset_ + width();
    if (!isSeen) continue;
    first = std::min(first, i);
    end = i + 1;
  }
  if (first >= end) return indexes;
  first -= std::min(first, more);
  end = std::min(count(), end + more);
  for (std::size_t i = first; i < end; ++i) indexes.push_back(i);
  return indexes;
}

QRect PictureStrip::placeOf(std::size_t index) const {
  const QRect place(lefts_[index] - offset_, 0, lefts_[index + 1] - look_.gap - lefts_[index],
                    look_.height);
  return QStyle::visualRect(layoutDirection(), rect(), place);
}

std::optional<std::size_t> PictureStrip::at(const QPoint& point) const {
  for (const std::size_t index : seen(0)) {
    if (placeOf(index).contains(point)) return index;
  }
  return {};
}

void PictureStrip::scrollTo(int offset) {
  const int most = std::max(0, contentWidth() - width());
  const int bound = std::clamp(offset, 0, most);
  if (bound != offset_) update();
  offset_ = bound;
}

/// With some of its neighbour, which tells that there is more.
void PictureStrip::bringIntoView(std::size_t index) {
  const int around = 3 * look_.gap;
  const int left = lefts_[index] - around;
  const int right = lefts_[index + 1] - look_.gap + std::max(around, endRoom_);
  if (right > offset_ + width()) scrollTo(right - width());
  if (left < offset_) scrollTo(left);
}

void PictureStrip::go(std::size_t index) {
  if (index >= count()) return;
  const bool isOther = index != current_;
  setCurrent(index);
  if (isOther) Q_EMIT currentChanged(index);
}

/// Takes what is at hand and asks for the rest: for what is seen, then for what is beside it.
void PictureStrip::lookForPictures() {
  if (heldRatio_ != devicePixelRatioF()) held_.clear();
  heldRatio_ = devicePixelRatioF();
  for (const std::size_t index : seen(1)) {
    if (held_.contains(index)) continue;
    if (const QPixmap* picture = images_.find(keyOf(index))) hold(index, *picture);
  }
  const std::vector<std::size_t> near = seen(1);
  std::erase_if(
      held_, [&](const auto& each) { return std::ranges::find(near, each.first) == near.end(); });
  std::vector<ImageKey> wanted;
  for (const auto& indexes : {seen(0), near}) {
    for (const std::size_t index : indexes) {
      if (!held_.contains(index)) wanted.push_back(keyOf(index));
    }
  }
  images_.want(this, std::move(wanted));
}

void PictureStrip::take(const ImageKey& key) {
  for (const std::size_t index : seen(1)) {
    if (keyOf(index) != key) continue;
    if (const QPixmap* picture = images_.find(key)) hold(index, *picture);
    update();
  }
}

/// Held here, for the store may have to give up some before all of a wide strip came.
void PictureStrip::hold(std::size_t index, const QPixmap& picture) {
  held_[index] = picture;
  const double ratio = bounded(static_cast<double>(picture.width()) / picture.height());
  if (ratio == ratios_[index]) return;
  ratios_[index] = ratio;
  arrange();
}

QRect PictureStrip::buttonOf(Side side) const {
  const int x = side == Side::start ? kButtonInset : width() - kButtonInset - kButton;
  return QStyle::visualRect(layoutDirection(), rect(),
                            {x, (look_.height - kButton) / 2, kButton, kButton});
}

PictureStrip::Side PictureStrip::buttonAt(const QPoint& point) const {
  if (offset_ > 0 && buttonOf(Side::start).contains(point)) return Side::start;
  const bool hasMore = offset_ < contentWidth() - width();
  return hasMore && buttonOf(Side::end).contains(point) ? Side::end : Side::none;
}

/// By as much as is seen whole.
void PictureStrip::turn(Side side) {
  const std::vector<std::size_t> shown = seen(0);
  if (shown.empty()) return;
  const std::size_t first = shown.front();
  const std::size_t last = shown.back();
  if (side == Side::end) {
    const std::size_t next = last > first ? last : std::min(first + 1, count() - 1);
    scrollTo(lefts_[next] - (next > 0 ? 2 * look_.gap : 0));
  } else {
    scrollTo(lefts_[first + 1] - width() + look_.gap);
  }
}

bool PictureStrip::event(QEvent* event) {
  if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) update();
  return QWidget::event(event);
}

void PictureStrip::paintEvent(QPaintEvent* /*event*/) {
  // Here and not in show(): who is not seen asks for nothing.
  lookForPictures();
  QPainter painter(this);
  if (isAwaiting_) paintAwaited(painter);
  for (const std::size_t index : seen(0)) paintPicture(painter, index);
  if (underMouse()) paintButtons(painter);
}

void PictureStrip::paintPicture(QPainter& painter, std::size_t index) const {
  Look& look = lookOf(*this);
  const QRectF place(placeOf(index));
  const bool isAside = look_.marksCurrent && index != current_;
  painter.setOpacity(isAside ? kAsideOpacity : 1);
  const auto picture = held_.find(index);
  if (picture != held_.end()) {
    drawPicture(painter, place, picture->second, {look_.radius, look[Token::line]});
  } else {
    drawPictureTile(painter, look, place, look_.radius);
  }
  painter.setOpacity(1);
  if (index != current_) return;
  const bool isRinged = hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange);
  if (!isRinged && !look_.marksCurrent) return;
  // Between ring and picture, which may have any colour, some of the ground.
  paintBox(painter, place.adjusted(1, 1, -1, -1), look_.radius - 1, Qt::transparent,
           {look[Token::base], 2});
  paintBox(painter, place, look_.radius, Qt::transparent, {look[Token::accentText], 2});
}

void PictureStrip::paintAwaited(QPainter& painter) const {
  const int tile = static_cast<int>(std::lround(look_.height * usualRatio(platform_)));
  for (int left = 0; left < width(); left += tile + look_.gap) {
    const QRect place =
        QStyle::visualRect(layoutDirection(), rect(), {left, 0, tile, look_.height});
    paintBox(painter, place, look_.radius, lookOf(*this)[Token::neutralTint]);
  }
}

void PictureStrip::paintButtons(QPainter& painter) const {
  Look& look = lookOf(*this);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const QPoint pointer = mapFromGlobal(QCursor::pos());
  for (const Side side : {Side::start, Side::end}) {
    const QRect button = buttonOf(side);
    if (buttonAt(button.center()) != side || width() < 4 * kButton) continue;
    const bool isHovered = button.contains(pointer);
    paintBox(painter, button, kButton / 2.0, look[isHovered ? Token::neutralTint : Token::raised],
             {look[Token::edge]});
    const bool isLeft = (side == Side::start) != isMirrored;
    const QPointF corner = QRectF(button).center() - QPointF(kButtonIcon / 2, kButtonIcon / 2);
    look.icons.draw(painter, corner,
                    isLeft ? QStringLiteral("chevron-left") : QStringLiteral("chevron-right"),
                    kButtonIcon, look[Token::text]);
  }
}

void PictureStrip::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  scrollTo(offset_);
}

void PictureStrip::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  images_.want(this, {});
  held_.clear();
}

void PictureStrip::keyPressEvent(QKeyEvent* event) {
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const auto plain = event->modifiers() & ~Qt::KeypadModifier;
  if (count() == 0 || plain != Qt::NoModifier) return QWidget::keyPressEvent(event);
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right: {
      const bool goesBack = (event->key() == Qt::Key_Left) != isMirrored;
      return go(goesBack ? current_ - std::min<std::size_t>(current_, 1) : current_ + 1);
    }
    case Qt::Key_Home: return go(0);
    case Qt::Key_End: return go(count() - 1);
    case Qt::Key_Return:
    case Qt::Key_Enter: Q_EMIT opened(); return;
    default: QWidget::keyPressEvent(event);
  }
}

void PictureStrip::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
  const QPoint point = event->position().toPoint();
  pressed_.reset();
  if (const Side side = buttonAt(point); side != Side::none) return turn(side);
  pressed_ = at(point);
}

void PictureStrip::mouseReleaseEvent(QMouseEvent* event) {
  const auto released = at(event->position().toPoint());
  if (event->button() != Qt::LeftButton || !released || pressed_ != released) return;
  pressed_.reset();
  go(*released);
  Q_EMIT opened();
}

void PictureStrip::mouseMoveEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  const bool isOnButton = buttonAt(point) != Side::none;
  setCursor(!isOnButton && at(point) ? Qt::PointingHandCursor : Qt::ArrowCursor);
  update();
}

/// To the side alone, or with Shift: the page below scrolls up and down.
void PictureStrip::wheelEvent(QWheelEvent* event) {
  const QPoint moved = event->pixelDelta().isNull() ? event->angleDelta() / 2 : event->pixelDelta();
  const bool isSideways = std::abs(moved.x()) > std::abs(moved.y());
  const bool isTurned = event->modifiers().testFlag(Qt::ShiftModifier);
  if (!isSideways && !isTurned) return event->ignore();
  const int by = isSideways ? moved.x() : moved.y();
  scrollTo(layoutDirection() == Qt::RightToLeft ? offset_ + by : offset_ - by);
  event->accept();
}

}  // namespace quillet
