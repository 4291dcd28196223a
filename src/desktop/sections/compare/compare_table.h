// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTableView>
#include <set>

#include "desktop/sections/compare/compare_model.h"

namespace quillet {

class CompareApps;
class CompareCells;
class CompareLabels;
class CostChart;
class ImageStore;

/// Apps beside each other. Their names and what they are compared by stay while the cells scroll;
/// the arrow keys go from cell to cell, and the chart of what the years cost is the last row.
class CompareTable : public QTableView {
  Q_OBJECT

 public:
  /// In `around`, which has the chart, too: of what lies on a table's cells assistive technology
  /// knows nothing. The store outlives it.
  CompareTable(ImageStore& images, QWidget& around);

  void show(CompareSheet sheet);
  using QTableView::show;
  [[nodiscard]] const CompareSheet& sheet() const { return model_->sheet(); }
  /// The app in whose column the current cell is.
  [[nodiscard]] std::optional<AppKey> chosen() const;
  void choose(const AppKey& app);
  /// The text of the current cell; empty where there is none.
  [[nodiscard]] QString currentText() const;
  void copyCurrent() const;
  /// The apps whose columns are seen.
  [[nodiscard]] std::set<AppKey> seen() const;

 Q_SIGNALS:
  /// Another app is chosen.
  void chosenChanged();
  void seenChanged();
  void opened(const quillet::AppKey& app);
  void removeAsked(const quillet::AppKey& app);
  void moveAsked(const quillet::AppKey& app, std::size_t to);
  void menuAsked(const QPoint& at);

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void updateGeometries() override;
  void moveEvent(QMoveEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void connectHeader();
  void moveColumn(int from, int to);
  void layOut();
  void placeChart();
  void openCurrent();

  CompareModel* model_;
  CompareApps* apps_;
  CompareLabels* labels_;
  CompareCells* cells_;
  CostChart* chart_;
  std::optional<AppKey> told_;  ///< who was said to be chosen
};

}  // namespace quillet
