// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QPainter>
#include <QVBoxLayout>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/models/collection_symbol.h"
#include "desktop/models/row_parts.h"
#include "desktop/models/time_words.h"
#include "desktop/page/block_table.h"
#include "desktop/page/page_price.h"
#include "desktop/page/page_text.h"
#include "desktop/page/text_growth.h"

namespace quillet {

namespace {

constexpr int kIcon = 16;
constexpr int kTextLeft = kIcon + 12;
constexpr int kAround = 6;
constexpr int kDateGap = 12;
constexpr int kNameHeight = 18;

/// One collection that the app is in: its name, the date, the note below.
class EntryRow : public QWidget {
 public:
  EntryRow(const PageEntry& entry, const QString& date, QWidget* parent)
      : QWidget(parent), icon_(iconOfSymbol(entry.symbolName)), date_(date) {
    const QString name = nameLine(entry.name);
    setAccessibleName(QStringLiteral("%1, %2").arg(name, date));
    auto* title = new PageText({.type = kControlType, .lineHeight = kNameHeight, .lines = 1}, this);
    title->show(name);
    auto* note =
        new PageText({.type = kBodyType, .ink = Token::secondary, .use = TextUse::copy}, this);
    note->show(entry.note.empty() ? tr("No note") : plainLines(entry.note));
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(kTextLeft, kAround, 0, kAround);
    auto* line = new QHBoxLayout;
    line->setSpacing(0);
    line->addWidget(title, 1);
    line->addSpacerItem(dateRoom_);
    layout->addLayout(line);
    layout->addWidget(note);
    fit();
  }

 protected:
  void changeEvent(QEvent* event) override {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) fit();
  }

  void paintEvent(QPaintEvent* /*event*/) override {
    Look& look = lookOf(*this);
    QPainter painter(this);
    const QRectF line(0, kAround, width(), grownBy(look, kNameHeight));
    const double above = std::floor((line.height() - kIcon) / 2) + 1;  // a letter's middle
    look.icons.draw(painter, {0, kAround + above}, icon_, kIcon, look[Token::secondary]);
    look.text.draw(painter, {line, TextAnchor::right}, date_, kCaptionType.tabular(),
                   look[Token::tertiary]);
  }

 private:
  void fit() {
    const double date = lookOf(*this).text.width(date_, kCaptionType.tabular());
    dateRoom_->changeSize(kDateGap + static_cast<int>(std::ceil(date)), 0);
    layout()->invalidate();
  }

  QString icon_;
  QString date_;
  QSpacerItem* dateRoom_ = new QSpacerItem(0, 0);  ///< the layout's
};

class NotesBlock : public Block {
 public:
  NotesBlock(const QString& title, const PageWorld& world) : Block(title), world_(world) {}

  bool fill(const PageFacts& known) override {
    if (known.entries == shown_) return !shown_.empty();
    shown_ = known.entries;
    for (EntryRow* row : std::exchange(rows_, {})) delete row;
    for (const PageEntry& entry : shown_) {
      const ViewWorld& view = world_.view;
      rows_.push_back(
          new EntryRow(entry, dateText(entry.addedAt, view.clock.now(), view.zone), this));
      content().addWidget(rows_.back());
    }
    return !shown_.empty();
  }

 private:
  PageWorld world_;
  std::vector<PageEntry> shown_;
  std::vector<EntryRow*> rows_;
};

}  // namespace

Block* makeNotesBlock(const QString& title, const PageWorld& world) {
  return new NotesBlock(title, world);
}

}  // namespace quillet
