// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/compare/compare_table.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>

#include "desktop/charts/cost_chart.h"
#include "desktop/images/image_store.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/widgets.h"
#include "desktop/sections/compare/compare_cells.h"
#include "desktop/sections/compare/compare_headers.h"

namespace quillet {

namespace {

constexpr int kLeastColumn = 200;
constexpr int kAboveChart = 16;
constexpr int kBelowChart = 16;

}  // namespace

CompareTable::CompareTable(ImageStore& images, QWidget& around)
    : QTableView(&around),
      model_(new CompareModel(this)),
      apps_(new CompareApps(*model_, images, this)),
      labels_(new CompareLabels(*model_, this)),
      cells_(new CompareCells(*model_, this)),
      chart_(new CostChart(tr("Years to own"), &around)) {
  setAccessibleName(tr("Compare"));
  setFrameShape(QFrame::NoFrame);
  setShowGrid(false);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setHorizontalScrollMode(ScrollPerPixel);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalHeader(apps_);
  setVerticalHeader(labels_);
  setItemDelegate(cells_);
  setModel(model_);
  setCornerButtonEnabled(false);
  // Cells paint their selection themselves.
  QPalette cells = palette();
  cells.setBrush(QPalette::Highlight, Qt::transparent);
  setPalette(cells);
  for (auto* corner : findChildren<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly))
    corner->installEventFilter(this);
  chart_->installEventFilter(this);
  connectHeader();
}

void CompareTable::connectHeader() {
  connect(apps_, &CompareApps::removeAsked, this,
          [this](int column) { Q_EMIT removeAsked(model_->column(column).app); });
  connect(apps_, &QHeaderView::sectionPressed, this, [this](int column) {
    setCurrentIndex(model_->index(std::max(0, currentIndex().row()), column));
    setFocus(Qt::MouseFocusReason);
  });
  connect(apps_, &QHeaderView::sectionDoubleClicked, this,
          [this](int column) { Q_EMIT opened(model_->column(column).app); });
  // Later, for the header is at work.
  connect(
      apps_, &QHeaderView::sectionMoved, this,
      [this](int /*column*/, int from, int to) { moveColumn(from, to); }, Qt::QueuedConnection);
}

/// The order of the columns is the list's, which tells of it; the header's own stays.
void CompareTable::moveColumn(int from, int to) {
  {
    const QSignalBlocker quiet(apps_);
    apps_->moveSection(to, from);
  }
  viewport()->update();
  if (from < model_->columnCount())
    Q_EMIT moveAsked(model_->column(from).app, static_cast<std::size_t>(to));
}

/// The current cell stays with its app, wherever that is now, or goes to the one in its place.
void CompareTable::show(CompareSheet sheet) {
  const std::optional<AppKey> before = chosen();
  const QModelIndex cell = currentIndex();
  const int row = std::max(0, cell.row());
  const int at = cell.column();
  const CostPicture costs = sheet.costs;
  const QString summary = sheet.costSummary;
  model_->show(std::move(sheet));
  chart_->show(costs, summary);
  if (before && !chosen() && model_->columnCount() > 0) {
    const int column = model_->columnOf(*before);
    const int neighbour = std::min(at, model_->columnCount() - 1);
    setCurrentIndex(model_->index(row, column >= 0 ? column : neighbour));
  }
  layOut();
  Q_EMIT seenChanged();
}

std::optional<AppKey> CompareTable::chosen() const {
  if (!currentIndex().isValid()) return {};
  return model_->column(currentIndex().column()).app;
}

void CompareTable::choose(const AppKey& app) {
  const int column = model_->columnOf(app);
  if (column < 0 || column == currentIndex().column()) return;
  setCurrentIndex(model_->index(std::max(0, currentIndex().row()), column));
}

QString CompareTable::currentText() const {
  return currentIndex().isValid() ? currentIndex().data().toString() : QString();
}

void CompareTable::copyCurrent() const {
  if (currentIndex().isValid()) QGuiApplication::clipboard()->setText(currentText());
}

std::set<AppKey> CompareTable::seen() const {
  std::set<AppKey> seen;
  for (int column = 0; column < model_->columnCount(); ++column) {
    const int left = columnViewportPosition(column);
    const bool isSeen = left < viewport()->width() && left + columnWidth(column) > 0;
    if (isSeen) seen.insert(model_->column(column).app);
  }
  return seen;
}

void CompareTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  apps_->setChosen(current.column());
  if (chosen() == told_) return;
  told_ = chosen();
  Q_EMIT chosenChanged();
}

void CompareTable::updateGeometries() {
  QTableView::updateGeometries();
  layOut();
}

/// Columns share the width, until there are too many of them.
void CompareTable::layOut() {
  if (chart_ == nullptr || model_->columnCount() == 0) return;
  const int count = model_->columnCount();
  const int least = static_cast<int>(kLeastColumn * lookOf(*this).growth());
  const int room = viewport()->width() - kCompareInset;
  for (int column = 0; column < count; ++column) {
    const int width = room * (column + 1) / count - room * column / count;
    apps_->resizeSection(column, std::max(least, width));
  }
  for (int row = 0; row < model_->rowCount(); ++row) {
    const bool isChart = model_->aspect(row) == CompareAspect::toOwn;
    const int chart = chart_->sizeHint().height() + kAboveChart + kBelowChart;
    labels_->resizeSection(row, isChart ? chart : cells_->rowHeight(row, *this));
  }
  placeChart();
}

/// As wide as the cells, however they are scrolled.
void CompareTable::placeChart() {
  const int row = model_->rowOf(CompareAspect::toOwn);
  chart_->setVisible(row >= 0 && model_->columnCount() > 0);
  if (chart_->isHidden()) return;
  const QRect place(0, rowViewportPosition(row) + kAboveChart, viewport()->width(),
                    chart_->sizeHint().height());
  const QPoint corner = viewport()->mapTo(parentWidget(), QPoint());
  chart_->setGeometry(place.translated(corner));
  // As far as its row is seen; an empty mask would be none.
  const QRect shown = place.intersected(viewport()->rect()).translated(-place.topLeft());
  chart_->setMask(shown.isEmpty() ? QRect(-1, -1, 1, 1) : shown);
  chart_->raise();
}

/// It goes along with the table, wherever that is put.
void CompareTable::moveEvent(QMoveEvent* event) {
  QTableView::moveEvent(event);
  placeChart();
}

void CompareTable::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  placeChart();
  if (dx != 0) Q_EMIT seenChanged();
}

void CompareTable::focusInEvent(QFocusEvent* event) {
  if (!currentIndex().isValid() && model_->columnCount() > 0) setCurrentIndex(model_->index(0, 0));
  QTableView::focusInEvent(event);
}

void CompareTable::openCurrent() {
  if (const std::optional<AppKey> app = chosen()) Q_EMIT opened(*app);
}

void CompareTable::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return copyCurrent();
  if (isReturn(*event) && chosen()) return openCurrent();
  QTableView::keyPressEvent(event);
}

/// The key that copies is for the cell here.
bool CompareTable::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride &&
      static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy) && currentIndex().isValid()) {
    event->accept();
    return true;
  }
  return QTableView::event(event);
}

void CompareTable::contextMenuEvent(QContextMenuEvent* event) {
  const bool isKey = event->reason() == QContextMenuEvent::Keyboard;
  const QModelIndex index =
      isKey ? currentIndex() : indexAt(viewport()->mapFromGlobal(event->globalPos()));
  if (!index.isValid()) return;
  setCurrentIndex(index);
  Q_EMIT menuAsked(isKey ? viewport()->mapToGlobal(visualRect(index).center())
                         : event->globalPos());
}

void CompareTable::mouseDoubleClickEvent(QMouseEvent* event) {
  QTableView::mouseDoubleClickEvent(event);
  openCurrent();
}

void CompareTable::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (changesSizes(*event)) updateGeometries();
}

/// The corner between the headers is empty; the chart comes into sight with the focus.
bool CompareTable::eventFilter(QObject* watched, QEvent* event) {
  if (watched == chart_ && event->type() == QEvent::Wheel)
    return QCoreApplication::sendEvent(viewport(), event);
  if (watched == chart_ && event->type() == QEvent::FocusIn) {
    const int row = model_->rowOf(CompareAspect::toOwn);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + rowViewportPosition(row) +
                                  rowHeight(row) - viewport()->height());
  }
  auto* corner = qobject_cast<QAbstractButton*>(watched);
  if (corner == nullptr || event->type() != QEvent::Paint)
    return QTableView::eventFilter(watched, event);
  QPainter painter(corner);
  Look& look = lookOf(*this);
  painter.fillRect(corner->rect(), look[Token::base]);
  PixelGrid(painter).horizontal(0, corner->width(), corner->height() - 1, look[Token::edge]);
  return true;
}

}  // namespace quillet
