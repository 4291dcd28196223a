// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>

#include "system/settings.h"

namespace quillet {

/// The settings file of the application, read at each question's first need and written at once.
/// What a write does not name stays as it is, other sections and comments included; a file is
/// replaced as a whole, so that whoever reads meanwhile sees the old one or the new one.
class IniSettingsFile final : public WritableSettings {
 public:
  explicit IniSettingsFile(std::filesystem::path file);

  [[nodiscard]] std::optional<std::string> text(std::string_view key) const override;
  void write(const Values& values) override;

 private:
  std::filesystem::path file_;
  IniSettings settings_;
};

/// The text of a settings file with these values set in its section [General].
[[nodiscard]] std::string withSettings(std::string_view text,
                                       const WritableSettings::Values& values);

}  // namespace quillet
