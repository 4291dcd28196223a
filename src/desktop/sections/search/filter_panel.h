// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "analysis/filters.h"
#include "store/records/platform.h"

namespace quillet {

struct FilterPanelState {
  AppFilters filters;
  std::string currency;
  Platform platform = Platform::mac;
  std::vector<std::string> genres;
};

class FilterPanel : public QWidget {
  Q_OBJECT

 public:
  void show(const FilterPanelState& /*state*/) {}
  [[nodiscard]] std::vector<AppFilters> choices() const { return {}; }
  void setCounts(const std::vector<std::optional<std::size_t>>& /*counts*/) {}

 Q_SIGNALS:
  void changed(const quillet::AppFilters& filters);
};

}  // namespace quillet
