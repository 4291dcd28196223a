// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "analysis/filters.h"

namespace quillet {

struct SearchBarState {
  AppFilters filters;
  int shown = 0;
  int all = 0;
  bool isPartial = false;
  QString news;
  bool canSave = false;
};

class SearchBar : public QWidget {
  Q_OBJECT

 public:
  void show(const SearchBarState& state) { shown = state; }
  SearchBarState shown;

 Q_SIGNALS:
  void changed(const quillet::AppFilters& filters);
  void saveAsked();
};

}  // namespace quillet
