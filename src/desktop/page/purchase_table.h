// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <utility>

#include "desktop/page/purchase_rows.h"

class QVBoxLayout;

namespace quillet {

class LinkButton;

/// Purchases as rows under their columns, the first ones until the user wants all. A row whose
/// price changed opens what `makeChart` makes of it, and stays open as more becomes known.
class PurchaseTable : public QWidget {
  Q_OBJECT

 public:
  using MakeChart = std::function<QWidget*(const PurchaseRow&, QWidget* parent)>;

  explicit PurchaseTable(MakeChart makeChart, QWidget* parent = nullptr);

  void show(const std::vector<PurchaseGroup>& groups);
  using QWidget::show;
  /// What comes next is another app's: nothing of it is open.
  void forget();

  struct Columns;
  enum class RowEnds { group, nothing };

 protected:
  void changeEvent(QEvent* event) override;

 private:
  using RowName = std::pair<QString, QString>;  ///< the item and its billing

  void build();
  void addTitle(const QString& title);
  void addRow(const PurchaseRow& row, RowEnds ends);
  [[nodiscard]] std::optional<RowName> focusedRow() const;

  MakeChart makeChart_;
  std::vector<PurchaseGroup> groups_;
  bool isFolded_ = true;
  std::set<RowName> open_;
  std::map<RowName, QWidget*> buttons_;     ///< of rows that can be opened
  std::shared_ptr<const Columns> columns_;  ///< what all rows share
  QVBoxLayout* layout_;
  QWidget* rows_ = nullptr;
  LinkButton* all_;
};

}  // namespace quillet
