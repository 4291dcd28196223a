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

#include "desktop/look/type_styles.h"
#include "export/app_report_exporter.h"

namespace quillet {

namespace {

constexpr double kPixelsPerInch = 96;  // as HTML counts them
constexpr double kMargin = 54;         // in points, on all sides
constexpr double kFoot = 24;           // in pixels, for the number of a page
constexpr double kFootText = 11;
constexpr QColor kFootInk(0x6e, 0x6e, 0x73);

void setFont(QTextCursor& cursor, const QTextFragment& fragment, const QFont& font, double growth) {
  QTextCharFormat format;
  format.setFontFamilies({font.family()});
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

void printPages(QTextDocument& document, QPagedPaintDevice& printer, const QFont& font) {
  QPainter painter(&printer);
  if (!painter.isActive()) return;
  const double scale = printer.logicalDpiY() / kPixelsPerInch;
  const QSizeF page(printer.width() / scale, printer.height() / scale);
  const QSizeF body(page.width(), page.height() - kFoot);
  document.setPageSize(body);
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
    painter.drawText(QRectF(0, body.height(), page.width(), kFoot),
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
  document.setDefaultFont(font);
  document.setHtml(QString::fromStdString(html));
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    for (const QTextFragment& fragment : fragmentsOf(block))
      setFont(cursor, fragment, font, growth);
  }
  cursor.endEditBlock();
}

void printReport(const AppReport& report, const QFont& font, QPagedPaintDevice& printer) {
  QTextDocument document;
  layReport(document, reportText(report, ReportForm::html), font, 1);
  document.setDocumentMargin(0);
  printPages(document, printer, font);
}

}  // namespace quillet
