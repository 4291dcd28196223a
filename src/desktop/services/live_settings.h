// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <set>
#include <string>

#include "system/settings.h"

namespace quillet {

/// The settings, for those who follow what the user changes in them.
class LiveSettings final : public QObject, public WritableSettings {
  Q_OBJECT

 public:
  /// The settings that are kept outlive this.
  explicit LiveSettings(WritableSettings& kept) : kept_(kept) {}

  [[nodiscard]] std::optional<std::string> text(std::string_view key) const override {
    return kept_.text(key);
  }
  void write(const Values& values) override;
  void forget(const Keys& keys) override;

 Q_SIGNALS:
  /// The values of these keys were written or forgotten.
  void changed(const std::set<std::string>& keys);

 private:
  WritableSettings& kept_;
};

}  // namespace quillet
