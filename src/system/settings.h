// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace quillet {

/// What the user chose in the application's settings.
class Settings {
 public:
  virtual ~Settings() = default;
  /// The value as text; absent where the key was never set.
  [[nodiscard]] virtual std::optional<std::string> text(std::string_view key) const = 0;
};

/// Settings that can be changed, too.
class WritableSettings : public Settings {
 public:
  using Values = std::map<std::string, std::string, std::less<>>;

  /// Sets these values and leaves all others as they are. Throws BadSetting where they cannot be
  /// kept.
  virtual void write(const Values& values) = 0;

  using Keys = std::set<std::string>;

  /// Leaves these keys unset, so that their defaults count, and all others as they are. Throws
  /// BadSetting where that cannot be kept.
  virtual void forget(const Keys& keys) = 0;
};

/// The text of a settings file, empty where there is none. Throws FileError where it cannot be read
/// or holds more than a mebibyte.
[[nodiscard]] std::string readSettingsFile(const std::filesystem::path& file);

/// The settings file, read once: the keys of its section [General], values as the application
/// writes them (quoted, escaped). Nothing in a file is an error: one that cannot be read holds no
/// settings, an unreadable line is skipped, and of a key given twice the last one counts.
class IniSettings final : public Settings {
 public:
  explicit IniSettings(const std::filesystem::path& file);

  /// Settings from the text of such a file.
  [[nodiscard]] static IniSettings parse(std::string_view text);

  [[nodiscard]] std::optional<std::string> text(std::string_view key) const override;

 private:
  IniSettings() = default;

  std::map<std::string, std::string, std::less<>> values_;
};

}  // namespace quillet
