// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTimer>
#include <QWidget>
#include <vector>

#include "desktop/models/row_table.h"

class QPushButton;

namespace quillet {

/// What stands in the place of rows while there are none.
class ListPlaceholder : public QWidget {
  Q_OBJECT

 public:
  enum class Kind {
    nothing,  ///< plain
    loading,  ///< grey rows, once it took a moment
    empty,    ///< what the list is for
    noMatch,  ///< rows there are, but none that the view lets through
  };

  /// `name` is the list's, which it has as well while it says nothing.
  ListPlaceholder(const QString& name, const EmptyList& empty);

  void setKind(Kind kind);
  [[nodiscard]] Kind kind() const { return kind_; }

 Q_SIGNALS:
  void clearAsked();
  /// The user wants what an empty list offers.
  void actionAsked(const QString& id);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void placeButtons();
  void addOffer(const EmptyOffer& offer);
  [[nodiscard]] bool hasButton() const;
  void paintGreyRows(QPainter& painter) const;
  void paintTexts(QPainter& painter) const;
  [[nodiscard]] EmptyList texts() const;
  /// Where the block of icon, texts and button begins.
  [[nodiscard]] double top() const;

  QString name_;
  EmptyList empty_;
  Kind kind_ = Kind::nothing;
  QPushButton* clear_;
  std::vector<QPushButton*> offers_;  ///< of an empty list
  QTimer moment_;
};

}  // namespace quillet
