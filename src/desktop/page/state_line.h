// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/models/list_state.h"

namespace quillet {

class LinkButton;
class PageText;

/// How a block's own question to the store stands, where it does not stand well.
class StateLine : public QWidget {
  Q_OBJECT

 public:
  explicit StateLine(QWidget* parent = nullptr);

  /// False where there is nothing to tell; it is hidden then.
  bool show(const ListState& state, Instant now);

 Q_SIGNALS:
  void triesAgain();

 private:
  PageText* text_;
  LinkButton* again_;
};

}  // namespace quillet
