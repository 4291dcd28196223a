// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLayout>
#include <vector>

namespace quillet {

/// A layout whose height hangs on its width: it owns its items, and leaves to those that derive
/// from it where these stand.
class ItemLayout : public QLayout {
 public:
  explicit ItemLayout(QWidget* parent);
  ~ItemLayout() override;

  void addItem(QLayoutItem* item) override { items_.push_back(item); }
  [[nodiscard]] int count() const override { return static_cast<int>(items_.size()); }
  [[nodiscard]] QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }

 protected:
  [[nodiscard]] const std::vector<QLayoutItem*>& items() const { return items_; }

 private:
  std::vector<QLayoutItem*> items_;
};

}  // namespace quillet
