// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/models/place.h"
#include "desktop/models/view_world.h"

namespace quillet {

class SearchTools : public QWidget {
  Q_OBJECT

 public:
  explicit SearchTools(const ViewWorld& /*world*/) {}
  void setQuery(const StoreQuery& /*query*/, const std::string& /*storefront*/) {}
  void setFilters(int /*active*/, bool /*areShown*/) {}

 Q_SIGNALS:
  void submitted(const QString& text);
  void platformChosen(quillet::Platform platform);
  void storefrontChosen(const std::string& storefront);
  void filtersToggled();
  void left();
};

}  // namespace quillet
