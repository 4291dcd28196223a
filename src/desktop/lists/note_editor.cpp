// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/note_editor.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <cmath>
#include <utility>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/widgets.h"

namespace quillet {

namespace {

constexpr double kBox = 54;  // two lines, and what is around them
constexpr double kHintGap = 4;
constexpr double kHint = 16;
constexpr int kPadding = 6;
constexpr double kCorner = 8;
constexpr double kRing = 2;

int grown(const Look& look, double pixels) {
  return static_cast<int>(std::ceil(pixels * look.growth()));
}

bool isEscape(const QEvent& event) {
  return static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

}  // namespace

NoteEditor::NoteEditor(const QString& note, const QString& app, QWidget* parent)
    : QWidget(parent), field_(new QPlainTextEdit(this)) {
  field_->setPlainText(note);
  field_->setAccessibleName(tr("Note on %1").arg(app));
  field_->setFrameShape(QFrame::NoFrame);
  field_->setTabChangesFocus(true);
  field_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  field_->viewport()->setAutoFillBackground(false);
  field_->document()->setDocumentMargin(2);
  field_->moveCursor(QTextCursor::End);
  field_->installEventFilter(this);
  setFocusProxy(field_);
}

QString NoteEditor::note() const { return field_->toPlainText().trimmed(); }

int NoteEditor::heightIn(const Look& look) { return grown(look, kBox + kHintGap + kHint); }

QSize NoteEditor::sizeHint() const { return {200, heightIn(lookOf(*this))}; }

/// Enter with Shift is a line of the note.
bool NoteEditor::takesKey(QEvent& event) {
  const auto& key = static_cast<const QKeyEvent&>(event);
  if (isEscape(event)) {
    leave();
  } else if (isReturn(event) && !key.modifiers().testFlag(Qt::ShiftModifier)) {
    keep();
  } else {
    return false;
  }
  return true;
}

bool NoteEditor::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      if (isEscape(*event)) event->accept();
      return isEscape(*event);
    case QEvent::KeyPress:
      if (takesKey(*event)) return true;
      break;
    case QEvent::FocusOut: {
      // Neither its own menu nor another window ends it.
      const Qt::FocusReason why = static_cast<QFocusEvent*>(event)->reason();
      if (why != Qt::PopupFocusReason && why != Qt::ActiveWindowFocusReason) keep();
      break;
    }
    default: break;
  }
  return QWidget::eventFilter(watched, event);
}

void NoteEditor::keep() {
  if (!std::exchange(isDone_, true)) Q_EMIT kept(note());
}

void NoteEditor::leave() {
  if (!std::exchange(isDone_, true)) Q_EMIT left();
}

void NoteEditor::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  field_->setGeometry(kPadding, kPadding, width() - 2 * kPadding,
                      grown(lookOf(*this), kBox) - 2 * kPadding);
}

void NoteEditor::paintEvent(QPaintEvent* /*event*/) {
  Look& look = lookOf(*this);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF box(0, 0, width(), grown(look, kBox));
  paintBox(painter, box, kCorner, look[Token::base], {look[Token::accentText], kRing});
  const QRectF hint(0, box.bottom() + kHintGap, width(), grown(look, kHint));
  look.text.drawElided(painter, {hint}, tr("Enter keeps it, Esc leaves it as it was"), kCaptionType,
                       look[Token::secondary]);
}

}  // namespace quillet
