// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/chart_access.h"

#include <QAccessibleTableModelChangeEvent>
#include <QAccessibleWidget>
#include <QPointer>
#include <map>
#include <utility>

#include "desktop/charts/chart_widget.h"

namespace quillet {

namespace {

int rowsOf(const ChartWidget& chart) { return static_cast<int>(chart.pointCount()); }

QAccessibleInterface* accessOf(const ChartWidget& chart) {
  return QAccessible::queryAccessibleInterface(const_cast<ChartWidget*>(&chart));
}

/// What is said of a point in one column, for as long as there is such a point.
class ChartCell : public QAccessibleInterface, public QAccessibleTableCellInterface {
 public:
  ChartCell(ChartWidget& chart, int row, int column) : chart_(&chart), row_(row), column_(column) {}

  [[nodiscard]] bool isValid() const override { return chart_ && row_ < rowsOf(*chart_); }
  [[nodiscard]] QObject* object() const override { return nullptr; }
  [[nodiscard]] QWindow* window() const override {
    return chart_ ? accessOf(*chart_)->window() : nullptr;
  }
  [[nodiscard]] QAccessibleInterface* parent() const override {
    return chart_ ? accessOf(*chart_) : nullptr;
  }
  [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  [[nodiscard]] int childCount() const override { return 0; }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override {
    return -1;
  }
  [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override {
    return nullptr;
  }
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Cell; }

  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state;
    state.readOnly = true;
    state.selectable = true;
    state.selected = isSelected();
    state.invisible = !chart_ || !chart_->isVisible();
    return state;
  }

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name || !isValid()) return {};
    return chart_->cellsOf(static_cast<std::size_t>(row_)).value(column_);
  }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

  [[nodiscard]] QRect rect() const override {
    constexpr int kAround = 4;
    if (!isValid()) return {};
    const QPoint middle = chart_->middleOf(static_cast<std::size_t>(row_)).toPoint();
    const QSize size(2 * kAround, 2 * kAround);
    return {chart_->mapToGlobal(middle) - QPoint(kAround, kAround), size};
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::TableCellInterface
               ? static_cast<QAccessibleTableCellInterface*>(this)
               : nullptr;
  }

  [[nodiscard]] bool isSelected() const override {
    return isValid() && chart_->chosen() == static_cast<std::size_t>(row_);
  }
  [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
  [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  [[nodiscard]] int columnIndex() const override { return column_; }
  [[nodiscard]] int rowIndex() const override { return row_; }
  [[nodiscard]] int columnExtent() const override { return 1; }
  [[nodiscard]] int rowExtent() const override { return 1; }
  [[nodiscard]] QAccessibleInterface* table() const override { return parent(); }

 private:
  QPointer<ChartWidget> chart_;
  int row_;
  int column_;
};

/// A chart as a table with a row for each point. The chosen point is the selected row.
class ChartAccess : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit ChartAccess(ChartWidget* chart)
      : QAccessibleWidget(chart, QAccessible::Chart), chart_(*chart) {}
  ~ChartAccess() override {
    for (const auto& [place, id] : cells_) QAccessible::deleteAccessibleInterface(id);
  }
  ChartAccess(const ChartAccess&) = delete;
  ChartAccess& operator=(const ChartAccess&) = delete;

  [[nodiscard]] int childCount() const override { return rowCount() * columnCount(); }
  [[nodiscard]] QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    return cellAt(index / columnCount(), index % columnCount());
  }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
    const auto* cell = dynamic_cast<const ChartCell*>(child);
    return cell == nullptr ? -1 : cell->rowIndex() * columnCount() + cell->columnIndex();
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override {
    if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount()) return nullptr;
    auto [known, isNew] = cells_.try_emplace({row, column}, 0);
    if (isNew)
      known->second = QAccessible::registerAccessibleInterface(new ChartCell(chart_, row, column));
    return QAccessible::accessibleInterface(known->second);
  }
  [[nodiscard]] int rowCount() const override { return rowsOf(chart_); }
  [[nodiscard]] int columnCount() const override {
    return static_cast<int>(chart_.columnNames().size());
  }
  [[nodiscard]] QString columnDescription(int column) const override {
    return chart_.columnNames().value(column);
  }
  [[nodiscard]] QString rowDescription(int /*row*/) const override { return {}; }
  [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }

  [[nodiscard]] int selectedCellCount() const override {
    return chart_.chosen() ? columnCount() : 0;
  }
  [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override {
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows()) {
      for (int column = 0; column < columnCount(); ++column) cells << cellAt(row, column);
    }
    return cells;
  }
  [[nodiscard]] int selectedColumnCount() const override { return 0; }
  [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
  [[nodiscard]] bool isColumnSelected(int /*column*/) const override { return false; }
  [[nodiscard]] int selectedRowCount() const override { return chart_.chosen() ? 1 : 0; }
  [[nodiscard]] QList<int> selectedRows() const override {
    if (!chart_.chosen()) return {};
    return {static_cast<int>(*chart_.chosen())};
  }
  [[nodiscard]] bool isRowSelected(int row) const override { return selectedRows().contains(row); }
  bool selectRow(int row) override {
    if (row < 0 || row >= rowCount()) return false;
    chart_.choose(static_cast<std::size_t>(row));
    return true;
  }
  bool selectColumn(int /*column*/) override { return false; }
  bool unselectRow(int row) override {
    if (!isRowSelected(row)) return false;
    chart_.choose(std::nullopt);
    return true;
  }
  bool unselectColumn(int /*column*/) override { return false; }
  void modelChange(QAccessibleTableModelChangeEvent* /*event*/) override {}

 private:
  ChartWidget& chart_;
  mutable std::map<std::pair<int, int>, QAccessible::Id> cells_;  ///< those that were asked for
};

QAccessibleInterface* chartAccess(const QString& /*className*/, QObject* object) {
  auto* chart = qobject_cast<ChartWidget*>(object);
  return chart == nullptr ? nullptr : new ChartAccess(chart);
}

}  // namespace

void letChartsBeRead() {
  static const bool isTold = [] {
    QAccessible::installFactory(chartAccess);
    return true;
  }();
  static_cast<void>(isTold);
}

void tellOfNewPoints(ChartWidget& chart) {
  if (!QAccessible::isActive()) return;
  QAccessibleTableModelChangeEvent event(&chart, QAccessibleTableModelChangeEvent::ModelReset);
  QAccessible::updateAccessibility(&event);
}

}  // namespace quillet
