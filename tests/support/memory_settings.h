// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/errors.h"
#include "system/settings.h"

namespace quillet {

/// Settings that a test sets.
class MemorySettings final : public WritableSettings {
 public:
  MemorySettings() = default;
  explicit MemorySettings(Values values) : values_(std::move(values)) {}

  void set(std::string_view key, std::string value) {
    values_.insert_or_assign(std::string(key), std::move(value));
  }

  /// Lets all further writes fail with this text.
  void refuseWrites(std::string reason) { refusal_ = std::move(reason); }

  /// Undoes that.
  void allowWrites() { refusal_.reset(); }

  void write(const Values& values) override {
    if (refusal_) throw BadSetting(*refusal_);
    for (const auto& [key, value] : values) set(key, value);
  }

  void forget(const Keys& keys) override {
    if (refusal_) throw BadSetting(*refusal_);
    for (const std::string& key : keys) values_.erase(key);
  }

  [[nodiscard]] std::optional<std::string> text(std::string_view key) const override {
    const auto found = values_.find(key);
    if (found == values_.end()) return {};
    return found->second;
  }

 private:
  Values values_;
  std::optional<std::string> refusal_;
};

}  // namespace quillet
