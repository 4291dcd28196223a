// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "desktop/page/purchase_rows.h"

class QVBoxLayout;

namespace quillet {

class LinkButton;

/// Purchases as rows under their columns, the first ones until the user wants all. A row whose
/// price changed opens what `makeChart` makes of it.
class PurchaseTable : public QWidget {
  Q_OBJECT

 public:
  using MakeChart = std::function<QWidget*(const PurchaseRow&, QWidget* parent)>;

  explicit PurchaseTable(MakeChart makeChart, QWidget* parent = nullptr);

  void show(const std::vector<PurchaseGroup>& groups);
  using QWidget::show;

  struct Columns;
  enum class RowEnds { group, nothing };

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void build();
  void addTitle(const QString& title);
  void addRow(const PurchaseRow& row, RowEnds ends);

  MakeChart makeChart_;
  std::vector<PurchaseGroup> groups_;
  bool isFolded_ = true;
  std::shared_ptr<const Columns> columns_;  ///< what all rows share
  QVBoxLayout* layout_;
  QWidget* rows_ = nullptr;
  LinkButton* all_;
};

}  // namespace quillet
