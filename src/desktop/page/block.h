// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/models/page_facts.h"
#include "queries/query_call.h"

class QHBoxLayout;
class QVBoxLayout;

namespace quillet {

/// A part of the page below its header, under a hairline and a title.
class Block : public QWidget {
  Q_OBJECT

 public:
  explicit Block(const QString& title, QWidget* parent = nullptr);

  /// Shows what is known now, again as it becomes more. False where there is nothing to say: the
  /// block is not seen then.
  [[nodiscard]] virtual bool fill(const PageFacts& known) = 0;

  /// It is near what is seen of the page, or would be if it were seen: what takes a request of its
  /// own is asked for now. Called for each app once, after the first fill() of its facts and when
  /// what else the page asks was answered; and again where the user wants all asked anew, with what
  /// is shown left in its place until the answer comes.
  virtual void approach(Freshness /*freshness*/) {}

  /// The user came to it by an action of the menu: it is seen now, and does what that is about.
  virtual void act() {}

  /// Whether it has the whole width, to the edge of the view, where others stand in pairs.
  [[nodiscard]] bool isWide() const { return isWide_; }
  void setWide(bool wide) { isWide_ = wide; }

 protected:
  /// At the right of the title.
  [[nodiscard]] QHBoxLayout& head() const { return *head_; }
  [[nodiscard]] QVBoxLayout& content() const { return *content_; }

  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QHBoxLayout* head_;
  QVBoxLayout* content_;
  bool isWide_ = false;
};

}  // namespace quillet
