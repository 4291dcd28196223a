// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/page/release_rows.h"

class QVBoxLayout;

namespace quillet {

class LinkButton;

/// How wide the rows of a list have what comes before their notes.
struct ReleaseColumns {
  double version = 32;
  double date = 88;
  double gap = 0;
};

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
  void addRow();
  void grow();
  void tellAll();

  std::vector<ReleaseRow> releases_;
  ReleaseColumns columns_;
  bool isFolded_ = true;
  QVBoxLayout* layout_;
  std::vector<QWidget*> rows_;
  LinkButton* all_;
};

}  // namespace quillet
