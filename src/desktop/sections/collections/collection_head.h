// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/sections/collections/collection_rows.h"

namespace quillet {

/// What stands above a collection's apps: its symbol, name, and what they cost together.
class CollectionHeadView : public QWidget {
  Q_OBJECT

 public:
  explicit CollectionHeadView(QWidget* parent = nullptr);

  void show(const CollectionHead& head);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  CollectionHead head_;
};

}  // namespace quillet
