// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/models/place.h"
#include "desktop/models/view_world.h"

namespace quillet {

class SearchStart : public QWidget {
  Q_OBJECT

 public:
  explicit SearchStart(const ViewWorld& /*world*/) {}
  void renew() {}

 Q_SIGNALS:
  void presetChosen(const quillet::AppFilters& filters);
  void chosen(const quillet::StoreQuery& query);
};

}  // namespace quillet
