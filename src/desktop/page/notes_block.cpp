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
    line->addWidget(title, 1);
    line->addSpacing(kDateGap + static_cast<int>(std::ceil(dateWidth())));
    layout->addLayout(line);
    layout->addWidget(note);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    Look& look = lookOf(*this);
    QPainter painter(this);
    look.icons.draw(painter, {0, kAround + 2}, icon_, kIcon, look[Token::secondary]);
    look.text.draw(painter, {QRectF(0, kAround, width(), kNameHeight), TextAnchor::right}, date_,
                   kCaptionType.tabular(), look[Token::tertiary]);
  }

 private:
  double dateWidth() const { return lookOf(*this).text.width(date_, kCaptionType.tabular()); }

  QString icon_;
  QString date_;
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
