// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/page/release_rows.h"

class QVBoxLayout;

namespace quillet {

class LinkButton;

/// Releases as rows, the newest three until the user wants all; their notes folded likewise.
class ReleaseList : public QWidget {
  Q_OBJECT

 public:
  explicit ReleaseList(QWidget* parent = nullptr);

  void show(const std::vector<ReleaseRow>& releases);
  using QWidget::show;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void build();
  void cut(std::size_t count);
  void grow();
  void tellAll();

  std::vector<ReleaseRow> releases_;
  bool isFolded_ = true;
  QVBoxLayout* layout_;
  std::vector<QWidget*> rows_;
  LinkButton* all_;
};

}  // namespace quillet
