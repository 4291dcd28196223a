// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>

#include "desktop/platform/login_item.h"

namespace quillet {

/// The login item of Linux desktops: a desktop entry in the user's autostart directory.
class AutostartEntry final : public LoginItem {
 public:
  /// `executable` is absolute. Neither need exist.
  AutostartEntry(const std::filesystem::path& autostartDirectory, std::filesystem::path executable);

  /// Whether there is an entry that starts something and that nobody turned off.
  [[nodiscard]] bool isEnabled() const override;
  void enable() override;
  void disable() override;

 private:
  std::filesystem::path file_;
  std::filesystem::path executable_;
};

/// The text of an entry that starts `executable`, in the desktop entry format.
[[nodiscard]] std::string autostartEntryText(const std::filesystem::path& executable);

}  // namespace quillet
