// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/guide_window.h"

#include <QPainter>
#include <QPushButton>
#include <QTextBlock>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/frame/installed_texts.h"
#include "desktop/look/button_look.h"
#include "desktop/look/look.h"

namespace quillet {

namespace {

constexpr int kWidth = 640;
constexpr int kHeight = 620;
constexpr double kMostGrowth = 1.4;
constexpr double kMargin = 24;

/// Of a heading of that level, and of a paragraph as level 0.
struct BlockLook {
  double size;  ///< of the letters, by that of the text
  double above;
  double below;
};

constexpr BlockLook kBlocks[] = {{1, 0, 8}, {1.6, 0, 12}, {1.2, 16, 6}};

/// Qt's own sizes of headings know neither the type nor the user's size of texts.
void layBlocks(QTextDocument& document, const QFont& font) {
  constexpr double kLine = 140;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    const auto level = static_cast<std::size_t>(block.blockFormat().headingLevel());
    const BlockLook& look = kBlocks[std::min(level, std::size(kBlocks) - 1)];
    QTextCursor cursor(block);
    QTextBlockFormat lines = block.blockFormat();
    lines.setTopMargin(look.above);
    lines.setBottomMargin(look.below);
    lines.setLineHeight(kLine, QTextBlockFormat::ProportionalHeight);
    cursor.setBlockFormat(lines);
    if (level == 0) continue;
    cursor.select(QTextCursor::BlockUnderCursor);
    QTextCharFormat letters;
    letters.setProperty(QTextFormat::FontPixelSize, font.pixelSize() * look.size);
    letters.clearProperty(QTextFormat::FontSizeAdjustment);
    letters.setFontWeight(QFont::DemiBold);
    cursor.setCharFormat(letters);
  }
}

QTextBrowser* makeText(const Look& look) {
  constexpr int kPixels = 14;
  auto* text = new QTextBrowser;
  text->setAccessibleName(GuideWindow::tr("Guide"));
  text->setFrameShape(QFrame::NoFrame);
  text->setOpenLinks(false);
  text->setTabChangesFocus(true);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  QFont font = text->font();
  font.setPixelSize(static_cast<int>(kPixels * look.growth()));
  text->document()->setDefaultFont(font);
  text->setMarkdown(QString::fromUtf8(kGuideText));
  layBlocks(*text->document(), font);
  text->document()->setDocumentMargin(kMargin);
  text->moveCursor(QTextCursor::Start);
  text->setCursorWidth(0);
  return text;
}

}  // namespace

GuideWindow::GuideWindow(QWidget* parent) : QDialog(parent) {
  const Look& look = lookOf(*this);
  const double growth = std::min(look.growth(), kMostGrowth);
  setWindowTitle(tr("Quillet Help"));
  setAccessibleName(windowTitle());
  resize(static_cast<int>(kWidth * growth), kHeight);
  auto* close = new QPushButton(tr("Close"));
  setButtonKind(*close, ButtonKind::primary);
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 20, 16);
  layout->setSpacing(12);
  layout->addWidget(makeText(look), 1);
  layout->addWidget(close, 0, Qt::AlignRight);
}

void GuideWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), lookOf(*this)[Token::base]);
}

}  // namespace quillet
