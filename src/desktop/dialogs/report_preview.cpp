// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/report_preview.h"

#include <QFontDatabase>
#include <QScrollBar>
#include <QUrl>

#include "desktop/look/look.h"

namespace quillet {

namespace {

constexpr QColor kPaper(0xff, 0xff, 0xff);
constexpr QColor kInk(0x1d, 0x1d, 0x1f);
constexpr QColor kLink(0x44, 0x48, 0xc8);
constexpr QColor kMarked(0xdf, 0xe1, 0xf7);
constexpr double kMargin = 24;
constexpr int kSourcePixels = 12;

}  // namespace

ReportPreview::ReportPreview() {
  setAccessibleName(tr("Preview of the report"));
  setOpenLinks(false);
  setUndoRedoEnabled(false);
  document()->setDocumentMargin(kMargin);
  setFrameShape(QFrame::NoFrame);
  setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
  QPalette paper = palette();
  paper.setColor(QPalette::Base, kPaper);
  paper.setColor(QPalette::Text, kInk);
  paper.setColor(QPalette::Link, kLink);
  paper.setColor(QPalette::Highlight, kMarked);
  paper.setColor(QPalette::HighlightedText, kInk);
  setPalette(paper);
  connect(this, &QTextBrowser::anchorClicked, this,
          [this](const QUrl& link) { Q_EMIT linkWanted(link.toString(QUrl::FullyEncoded)); });
}

void ReportPreview::show(const std::string& text, ReportForm form) {
  const int scrolled = verticalScrollBar()->value();
  if (form == ReportForm::html || form == ReportForm::pdf) {
    layReport(*document(), text, font(), lookOf(*this).growth());
  } else {
    showSource(QString::fromStdString(text));
  }
  verticalScrollBar()->setValue(scrolled);
}

void ReportPreview::showSource(const QString& text) {
  QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  fixed.setPixelSize(static_cast<int>(kSourcePixels * lookOf(*this).growth()));
  // What stands there was laid out in other formats.
  document()->clear();
  document()->setDefaultFont(fixed);
  setCurrentCharFormat({});
  setPlainText(text);
}

}  // namespace quillet
