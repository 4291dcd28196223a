// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/report_document.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QCoreApplication>
#include <QFont>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <cmath>

#include "desktop/look/type_styles.h"
#include "export/app_report_exporter.h"

namespace quillet {

namespace {

constexpr double kPixelsPerInch = 96;  // as HTML counts them
constexpr double kMargin = 54;         // in points, on all sides
constexpr double kFoot = 24;           // in pixels, for the number of a page
constexpr double kFootText = 11;
constexpr double kAboveReview = 28;
constexpr char16_t kStar = 0x2605;  // a review has at least one
constexpr QColor kFootInk(0x6e, 0x6e, 0x73);

void setFont(QTextCursor& cursor, const QTextFragment& fragment, const QFont& font, double growth) {
  QTextCharFormat format;
  format.setFontFamilies({font.family()});
  format.setFontStyleStrategy(font.styleStrategy());
  const int pixels = fragment.charFormat().intProperty(QTextFormat::FontPixelSize);
  if (pixels > 0) format.setProperty(QTextFormat::FontPixelSize, static_cast<int>(pixels * growth));
  // The font's own Bold, without a false one upon it.
  if (fragment.charFormat().fontWeight() >= QFont::Bold) format.setFontWeight(kBold);
  cursor.setPosition(fragment.position());
  cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
  cursor.mergeCharFormat(format);
}

/// The pieces of a block, before any of them is changed.
std::vector<QTextFragment> fragmentsOf(const QTextBlock& block) {
  std::vector<QTextFragment> fragments;
  for (auto it = block.begin(); !it.atEnd(); ++it) fragments.push_back(it.fragment());
  return fragments;
}

QString pageText(int page, int pages) {
  return QCoreApplication::translate("Report", "%1 of %2")
      .arg(QString::number(page), QString::number(pages));
}

/// What browsers do by rules that are not read here: the last line stands below the others, and
/// there is air before each review.
void layLines(QTextDocument& document) {
  QTextBlockFormat last = document.lastBlock().blockFormat();
  last.setLeftMargin(document.begin().blockFormat().leftMargin());
  last.setTopMargin(kAboveReview);
  QTextCursor(document.lastBlock()).setBlockFormat(last);
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    if (!block.text().startsWith(QChar(kStar)) || block.blockFormat().headingLevel() > 0) continue;
    QTextBlockFormat format;
    format.setTopMargin(kAboveReview);
    QTextCursor(block).mergeBlockFormat(format);
  }
}

/// Of its first line, which may have been moved below the block's own edge.
int pageOf(const QTextDocument& document, const QTextBlock& block) {
  document.pageCount();  // lays out what no longer is after a break
  const double top = document.documentLayout()->blockBoundingRect(block).top();
  const double line = block.layout()->lineCount() > 0 ? block.layout()->lineAt(0).y() : 0;
  return static_cast<int>((top + line) / document.pageSize().height());
}

QColor inkOf(const QTextBlock& block) {
  return block.begin().atEnd() ? QColor()
                               : block.begin().fragment().charFormat().foreground().color();
}

void beginPage(const QTextBlock& block) {
  QTextBlockFormat format;
  format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
  QTextCursor(block).mergeBlockFormat(format);
}

/// Headings, and the quieter lines around them, stand on the page of what they are about. Each
/// break moves all that follows.
void keepHeadings(QTextDocument& document) {
  const QColor ink = inkOf(document.begin());
  QTextBlock first;  // of such lines one below the other
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() > 0 || inkOf(block) != ink) {
      if (!first.isValid()) first = block;
      continue;
    }
    const bool isApart = first.isValid() && pageOf(document, first) != pageOf(document, block);
    if (isApart && QTextCursor(first).currentTable() == nullptr) beginPage(first);
    first = {};
  }
}

void printPages(QTextDocument& document, QPagedPaintDevice& printer, const QFont& font) {
  QPainter painter(&printer);
  if (!painter.isActive()) return;
  const double scale = printer.logicalDpiY() / kPixelsPerInch;
  const QSizeF page(printer.width() / scale, printer.height() / scale);
  // In whole pixels: layouts count in fractions of their own, and a hundred pages add up.
  const QSizeF body(page.width(), std::floor(page.height() - kFoot));
  document.setPageSize(body);
  keepHeadings(document);
  const double inset = document.begin().blockFormat().rightMargin();
  painter.scale(scale, scale);
  QFont small(font);
  small.setPixelSize(static_cast<int>(kFootText));
  const int pages = document.pageCount();
  for (int i = 0; i < pages; ++i) {
    if (i > 0) printer.newPage();
    painter.save();
    painter.translate(0, -i * body.height());
    const QRectF shown(QPointF(0, i * body.height()), body);
    painter.setClipRect(shown);
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = shown;
    context.palette.setColor(QPalette::Text, Qt::black);
    document.documentLayout()->draw(&painter, context);
    painter.restore();
    painter.setFont(small);
    painter.setPen(kFootInk);
    painter.drawText(QRectF(0, body.height(), page.width() - inset, kFoot),
                     Qt::AlignRight | Qt::AlignBottom, pageText(i + 1, pages));
  }
}

std::string pdfOf(const AppReport& report, const QFont& font) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setTitle(QString::fromStdString(report.name));
  writer.setPageMargins({kMargin, kMargin, kMargin, kMargin}, QPageLayout::Point);
  printReport(report, font, writer);
  return bytes.toStdString();
}

ReportFormat formatOf(ReportForm form) {
  switch (form) {
    case ReportForm::markdown: return ReportFormat::markdown;
    case ReportForm::json: return ReportFormat::json;
    case ReportForm::html:
    case ReportForm::pdf: break;
  }
  return ReportFormat::html;
}

}  // namespace

std::string reportText(const AppReport& report, ReportForm form) {
  return AppReportExporter(report).text(formatOf(form));
}

std::string reportFile(const AppReport& report, ReportForm form, const QFont& font) {
  return form == ReportForm::pdf ? pdfOf(report, font) : reportText(report, form);
}

// The report names the fonts of whatever browser reads it, which are seldom here.
void layReport(QTextDocument& document, const std::string& html, const QFont& font, double growth) {
  document.setUndoRedoEnabled(false);
  document.setLayoutEnabled(false);  // Once, when all is as it is to be.
  document.setDefaultFont(font);
  document.setHtml(QString::fromStdString(html));
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    for (const QTextFragment& fragment : fragmentsOf(block))
      setFont(cursor, fragment, font, growth);
  }
  cursor.endEditBlock();
  layLines(document);
  document.setLayoutEnabled(true);
}

void printReport(const AppReport& report, const QFont& font, QPagedPaintDevice& printer) {
  QTextDocument document;
  // Glyphs that a font puts in the place of others cannot be searched for or copied from a file.
  QFont plain(font);
  plain.setStyleStrategy(QFont::PreferNoShaping);
  layReport(document, reportText(report, ReportForm::html), plain, 1);
  document.setDocumentMargin(0);
  printPages(document, printer, plain);
}

}  // namespace quillet
