// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <utility>

#include "system/settings.h"

namespace quillet {

/// The settings file of the application, read anew for each question, so that what somebody else
/// wrote counts from then on, and written at once. What a write does not name stays as it is, other
/// sections and comments included; a file is replaced as a whole, so that whoever reads meanwhile
/// sees the old one or the new one, and never where it cannot be read as a whole.
class IniSettingsFile final : public WritableSettings {
 public:
  explicit IniSettingsFile(std::filesystem::path file) : file_(std::move(file)) {}

  [[nodiscard]] std::optional<std::string> text(std::string_view key) const override;
  void write(const Values& values) override;
  void forget(const Keys& keys) override;

 private:
  std::filesystem::path file_;
};

/// The text of a settings file with these values set in its section [General].
[[nodiscard]] std::string withSettings(std::string_view text,
                                       const WritableSettings::Values& values);

/// The text with none of these keys in that section; as it is where it has none of them.
[[nodiscard]] std::string withoutSettings(std::string_view text,
                                          const WritableSettings::Keys& keys);

}  // namespace quillet
