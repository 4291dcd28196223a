// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/chip.h"

#include <QKeyEvent>
#include <QPainter>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/widgets.h"

namespace quillet {

namespace {

constexpr int kGap = 6;
constexpr int kPadding = 10;
constexpr int kPaddingBesideIcon = 6;
constexpr int kIcon = 14;
constexpr double kHovered = 0.05;
constexpr double kPressed = 0.09;

/// What a chip shows at the moment.
struct Face {
  QString text;
  QString before;  ///< icons; empty for none
  QString behind;
  int weight = kSmallControlType.weight;
  Token fill = Token::neutralTint;
  Token ink = Token::text;
  Token iconInk = Token::secondary;
  bool isOutlined = false;

  [[nodiscard]] TypeStyle type() const { return kSmallControlType.weighing(weight); }
};

Face filterFace(const Chip& chip) {
  Face face{.text = chip.plainText()};
  if (chip.isChecked()) {
    face.behind = QStringLiteral("x");
  } else {
    face.ink = Token::secondary;
  }
  return face;
}

Face presetFace(const Chip& chip) {
  Face face{.text = chip.plainText()};
  if (chip.isChecked()) {
    face.before = QStringLiteral("check2");
    face.weight = 600;
    face.fill = Token::selection;
    face.ink = Token::tintedText;
    face.iconInk = Token::tintedText;
  } else {
    face.fill = Token::base;
    face.isOutlined = true;
  }
  return face;
}

QSize sizeOf(const QWidget& chip, const Face& face) {
  const double text = lookOf(chip).text.width(face.text, face.type());
  const int before = face.before.isEmpty() ? 0 : kIcon + kGap;
  const int end = face.behind.isEmpty() ? kPadding : kGap + kIcon + kPaddingBesideIcon;
  return {kPadding + before + static_cast<int>(std::ceil(text)) + end,
          grownLine(chip, kChipHeight)};
}

void paint(QAbstractButton& chip, const Face& face) {
  QPainter painter(&chip);
  Look& look = lookOf(chip);
  QColor fill = look[face.fill];
  const bool isDark = look.palette.scheme() == Scheme::dark;
  if (chip.isDown() || chip.underMouse())
    fill = mixed(fill, isDark ? Qt::white : Qt::black, chip.isDown() ? kPressed : kHovered);
  const Border border{face.isOutlined ? look[Token::edge] : QColor(Qt::transparent)};
  paintBox(painter, chip.rect(), chip.height() / 2.0, fill, border);

  const bool isMirrored = chip.layoutDirection() == Qt::RightToLeft;
  const auto iconAt = [&](double left, const QString& icon) {
    const double x = isMirrored ? chip.width() - left - kIcon : left;
    look.icons.draw(painter, {x, (chip.height() - kIcon) / 2.0}, icon, kIcon, look[face.iconInk]);
  };
  double left = kPadding;
  if (!face.before.isEmpty()) {
    iconAt(left, face.before);
    left += kIcon + kGap;
  }
  const QRectF line = isMirrored ? QRectF(0, 0, chip.width() - left, chip.height())
                                 : QRectF(left, 0, chip.width() - left, chip.height());
  look.text.draw(painter, {line, isMirrored ? TextAnchor::right : TextAnchor::left}, face.text,
                 face.type(), look[face.ink]);
  if (!face.behind.isEmpty()) iconAt(chip.width() - kPaddingBesideIcon - kIcon, face.behind);
}

bool isRemoval(const QKeyEvent& key) {
  return key.key() == Qt::Key_Delete || key.key() == Qt::Key_Backspace;
}

Face faceOf(const MoreChip& chip) {
  Face face{.text = chip.text(), .behind = QStringLiteral("chevron-down")};
  if (chip.accessibleDescription().isEmpty()) face.ink = Token::secondary;
  return face;
}

}  // namespace

int grownLine(const QWidget& widget, int line) {
  constexpr double kText = 16;  // of the height
  return line + static_cast<int>(std::ceil(kText * (lookOf(widget).growth() - 1)));
}

Chip::Chip(const QString& text, QWidget* parent, Kind kind) : QCheckBox(parent), kind_(kind) {
  setPlainText(text);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  connect(this, &QCheckBox::toggled, this, &QWidget::updateGeometry);
}

void Chip::setPlainText(const QString& text) { setText(controlText(text)); }

QString Chip::plainText() const { return textOfControl(text()); }

QSize Chip::sizeHint() const {
  return sizeOf(*this, kind_ == Kind::preset ? presetFace(*this) : filterFace(*this));
}

bool Chip::hitButton(const QPoint& point) const { return rect().contains(point); }

/// What removes a chip would else remove rows of the list.
bool Chip::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && isChecked() &&
      isRemoval(*static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  return QCheckBox::event(event);
}

void Chip::keyPressEvent(QKeyEvent* event) {
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  if (isChecked() && isRemoval(*event)) {
    click();
    return;
  }
  switch (event->key()) {
    case Qt::Key_Left: Q_EMIT stepped(isMirrored ? 1 : -1); return;
    case Qt::Key_Right: Q_EMIT stepped(isMirrored ? -1 : 1); return;
    case Qt::Key_Return:
    case Qt::Key_Enter: click(); return;
    default: QCheckBox::keyPressEvent(event);
  }
}

void Chip::paintEvent(QPaintEvent* /*event*/) {
  paint(*this, kind_ == Kind::preset ? presetFace(*this) : filterFace(*this));
}

MoreChip::MoreChip(QWidget* parent) : QPushButton(tr("More"), parent) {
  setAttribute(Qt::WA_Hover);
  setAccessibleName(tr("More filters"));
}

void MoreChip::setChosen(const QStringList& texts) {
  setAccessibleDescription(texts.join(QStringLiteral(", ")));
  update();
}

QSize MoreChip::sizeHint() const { return sizeOf(*this, faceOf(*this)); }

void MoreChip::paintEvent(QPaintEvent* /*event*/) { paint(*this, faceOf(*this)); }

}  // namespace quillet
