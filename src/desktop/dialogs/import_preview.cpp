// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/import_preview.h"

#include <QDateTime>
#include <QLocale>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "desktop/dialogs/import_tree.h"
#include "desktop/lists/text_label.h"
#include "desktop/look/dialog_button.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/page/link_button.h"
#include "desktop/page/page_text.h"

namespace quillet {

namespace {

constexpr QSize kUsualSize(640, 592);
constexpr QSize kLeastSize(440, 320);
constexpr double kMostGrowth = 1.4;  // of the sheet along with its texts
constexpr double kMostOfScreen = 0.9;
constexpr int kMargin = 24;
constexpr int kTop = 20;
constexpr int kGap = 16;
constexpr QMargins kFrame(1, 5, 1, 5);  // around the rows
constexpr double kFrameCorner = 8;

/// "20 Nov 2026": with the year, for files are kept for long.
QString dayOf(Instant when, const UtcOffsetAt& zone) {
  const auto local = std::chrono::floor<std::chrono::seconds>(when + zone(when));
  const QDate day = QDateTime::fromSecsSinceEpoch(local.time_since_epoch().count(), Qt::UTC).date();
  return QLocale().toString(day, QStringLiteral("d MMM yyyy"));
}

/// As the texts ask for it, and no larger than the screen bears.
QSize sizeOn(const QWidget& dialog) {
  const QSize wanted = kUsualSize * std::min(lookOf(dialog).growth(), kMostGrowth);
  const QSize most = dialog.screen()->availableSize() * kMostOfScreen;
  return wanted.boundedTo(most).expandedTo(kLeastSize);
}

}  // namespace

ImportPreviewDialog::ImportPreviewDialog(const QString& file, ReadLibrary library,
                                         const ViewWorld& world, QWidget* parent)
    : QDialog(parent),
      rows_(std::move(library), world.locale),
      tree_(new ImportTree(rows_)),
      summary_(new PageText({.type = kBodyType, .ink = Token::secondary})),
      all_(new LinkButton(tr("Tick All"), kControlType)),
      imports_(new DialogButton(tr("Import"), ButtonKind::primary)) {
  setWindowTitle(tr("Import Library"));
  setAccessibleName(windowTitle());
  setAttribute(Qt::WA_DeleteOnClose);
  setMinimumSize(kLeastSize);
  resize(sizeOn(*this));
  lay(tr("%1, written on %2 by Quillet").arg(file, dayOf(rows_.document().exportedAt, world.zone)));
  connect(&rows_, &ImportModel::ticked, this, &ImportPreviewDialog::showSummary);
  connect(all_, &QAbstractButton::clicked, &rows_, &ImportModel::tickAll);
  connect(imports_, &QPushButton::clicked, this, &QDialog::accept);
  imports_->setDefault(true);
  showSummary();
  tree_->setFocus();
}

// Before the rows, which it shows.
ImportPreviewDialog::~ImportPreviewDialog() { delete tree_; }

void ImportPreviewDialog::lay(const QString& origin) {
  auto* title = new TextLabel(kSectionType, Token::text);
  title->setText(windowTitle());
  auto* from = new TextLabel(kBodyType, Token::secondary);
  from->setText(origin);
  auto* cancel = new DialogButton(tr("Cancel"));
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kTop, kMargin, kTop);
  column->setSpacing(0);
  column->addWidget(title);
  column->addWidget(from);
  column->addSpacing(kGap);
  auto* framed = new QVBoxLayout;
  framed->setContentsMargins(kFrame);
  framed->addWidget(tree_);
  column->addLayout(framed, 1);
  column->addSpacing(kGap);
  column->addWidget(summary_);
  column->addSpacing(kGap);
  column->addLayout(buttonRow({all_}, {cancel, imports_}));
}

void ImportPreviewDialog::showSummary() {
  summary_->show(rows_.summary());
  all_->setEnabled(rows_.canTickMore());
  imports_->setEnabled(rows_.canImport());
}

void ImportPreviewDialog::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  painter.fillRect(rect(), look[Token::base]);
  paintBox(painter, tree_->geometry() + kFrame, kFrameCorner, Qt::transparent, {look[Token::edge]});
}

}  // namespace quillet
