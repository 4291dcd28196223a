// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillet {

/// Where environment variables come from.
class Environment {
 public:
  virtual ~Environment() = default;
  /// Absent where the variable is unset or empty.
  [[nodiscard]] virtual std::optional<std::string> get(std::string_view name) const = 0;
};

/// The variables that this process was started with.
class ProcessEnvironment final : public Environment {
 public:
  [[nodiscard]] std::optional<std::string> get(std::string_view name) const override;
};

}  // namespace quillet
