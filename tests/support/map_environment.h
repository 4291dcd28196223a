// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "system/environment.h"

namespace quillet {

/// Environment variables that a test sets; an empty one counts as unset, as in the real ones.
class MapEnvironment final : public Environment {
 public:
  using Variables = std::map<std::string, std::string, std::less<>>;

  MapEnvironment() = default;
  explicit MapEnvironment(Variables variables) : variables_(std::move(variables)) {}

  void set(std::string_view name, std::string value) {
    variables_.insert_or_assign(std::string(name), std::move(value));
  }

  [[nodiscard]] std::optional<std::string> get(std::string_view name) const override {
    const auto found = variables_.find(name);
    if (found == variables_.end() || found->second.empty()) return {};
    return found->second;
  }

 private:
  Variables variables_;
};

}  // namespace quillet
