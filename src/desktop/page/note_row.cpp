// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/note_row.h"

#include <QEvent>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>
#include <cmath>
#include <utility>

#include "desktop/lists/note_editor.h"
#include "desktop/look/button_look.h"
#include "desktop/models/collection_symbol.h"
#include "desktop/models/row_parts.h"
#include "desktop/page/page_text.h"
#include "desktop/page/text_growth.h"

namespace quillet {

namespace {

constexpr int kIcon = 16;
constexpr int kTextLeft = kIcon + 12;
constexpr int kAround = 6;
constexpr int kDateGap = 12;
constexpr int kNameHeight = 18;
constexpr int kPencil = 24;
constexpr double kPencilIcon = 12;

}  // namespace

NoteRow::NoteRow(const PageEntry& entry, const QString& date, QWidget* parent)
    : QWidget(parent),
      entry_(entry),
      name_(collectionLine(entry.name)),
      icon_(iconOfSymbol(entry.symbolName)),
      date_(date),
      note_(new PageText({.type = kBodyType, .ink = Token::secondary, .use = TextUse::copy}, this)),
      edit_(new QToolButton(this)),
      dateRoom_(new QSpacerItem(0, 0)) {
  setAccessibleName(QStringLiteral("%1, %2").arg(name_, date));
  auto* title = new PageText({.type = kControlType, .lineHeight = kNameHeight, .lines = 1}, this);
  title->show(name_);
  note_->show(entry.note.empty() ? tr("No note") : shownNote(plainLines(entry.note)));
  setIconName(*edit_, QStringLiteral("pencil"), kPencilIcon);
  edit_->setAccessibleName(tr("Edit the note in %1").arg(name_));
  edit_->setToolTip(tr("Edit the note"));
  edit_->setFixedSize(kPencil, kPencil);
  connect(edit_, &QToolButton::clicked, this, &NoteRow::edit);
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(0);
  layout->setContentsMargins(kTextLeft, kAround, 0, kAround);
  auto* line = new QHBoxLayout;
  line->setSpacing(0);
  line->addWidget(title, 1);
  line->addSpacerItem(dateRoom_);
  layout->addLayout(line);
  auto* below = new QHBoxLayout;
  below->setSpacing(kDateGap);
  below->addWidget(note_, 1);
  below->addWidget(edit_, 0, Qt::AlignTop);
  layout->addLayout(below);
  fit();
}

void NoteRow::edit() {
  if (editor_) return editor_->setFocus(Qt::OtherFocusReason);
  editor_ = new NoteEditor(QString::fromStdString(entry_.note), name_, this);
  connect(editor_, &NoteEditor::left, this, &NoteRow::end);
  connect(editor_, &NoteEditor::kept, this, [this](const QString& note) {
    end();
    Q_EMIT written(note);
  });
  static_cast<QVBoxLayout*>(layout())->addWidget(editor_);
  note_->hide();
  edit_->hide();
  editor_->show();
  editor_->setFocus(Qt::OtherFocusReason);
}

void NoteRow::end() {
  NoteEditor* const editor = editor_;
  if (editor == nullptr) return;
  editor_ = nullptr;
  note_->setVisible(true);
  edit_->setVisible(true);
  if (editor->focusProxy()->hasFocus()) edit_->setFocus(Qt::OtherFocusReason);
  editor->hide();
  editor->deleteLater();
}

void NoteRow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) fit();
}

void NoteRow::paintEvent(QPaintEvent* /*event*/) {
  Look& look = lookOf(*this);
  QPainter painter(this);
  const QRectF line(0, kAround, width(), grownBy(look, kNameHeight));
  const double above = std::floor((line.height() - kIcon) / 2) + 1;  // a letter's middle
  look.icons.draw(painter, {0, kAround + above}, icon_, kIcon, look[Token::secondary]);
  look.text.draw(painter, {line, TextAnchor::right}, date_, kCaptionType.tabular(),
                 look[Token::tertiary]);
}

void NoteRow::fit() {
  const double date = lookOf(*this).text.width(date_, kCaptionType.tabular());
  dateRoom_->changeSize(kDateGap + static_cast<int>(std::ceil(date)), 0);
  layout()->invalidate();
}

}  // namespace quillet
