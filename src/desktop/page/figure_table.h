// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>
#include <QWidget>
#include <memory>
#include <vector>

#include "desktop/look/palette.h"

class QVBoxLayout;

namespace quillet {

enum class FigureMark { none, up, down, low };

struct FigureCell {
  QString text;
  Token ink = Token::text;
  FigureMark mark = FigureMark::none;  ///< before the text

  friend bool operator==(const FigureCell&, const FigureCell&) = default;
};

struct FigureRow {
  std::vector<FigureCell> cells;
  QString spoken;  ///< the row in a sentence
  QString tip;     ///< what is told of it under the pointer; empty for nothing

  friend bool operator==(const FigureRow&, const FigureRow&) = default;
};

/// A few rows of a text and its figures, which stand at the right, under their columns.
class FigureTable : public QWidget {
  Q_OBJECT

 public:
  FigureTable(const QString& name, QStringList columns, QWidget* parent = nullptr);

  void show(const std::vector<FigureRow>& rows);
  using QWidget::show;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void build();

  QStringList columns_;
  std::vector<FigureRow> rows_;
  QWidget* built_ = nullptr;
  QVBoxLayout* layout_;
};

}  // namespace quillet
