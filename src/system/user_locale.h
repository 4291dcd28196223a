// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "system/environment.h"
#include "system/settings.h"

namespace quillet {

/// The locales for each purpose, as ICU names them ("de_DE", "sr_Latn_RS").
struct UserLocale {
  std::string monetary = "en_US";
  std::string numeric = "en_US";
  std::string collation = "en_US";
  std::string dates = "en_US";

  friend bool operator==(const UserLocale&, const UserLocale&) = default;
};

/// From LC_ALL, else the purpose's own variable (LC_MONETARY, LC_NUMERIC, LC_COLLATE, LC_TIME),
/// else LANG. "C", "POSIX" and names that are no locale's read as en_US.
[[nodiscard]] UserLocale findUserLocale(const Environment& environment);

/// Whether text is written to the terminal as UTF-8: the encoding of LC_ALL, else LC_CTYPE, else
/// LANG.
[[nodiscard]] bool usesUtf8(const Environment& environment);

/// The storefront of someone who names none: the setting, else the region of the monetary locale,
/// else "us". Lower case.
[[nodiscard]] std::string defaultStorefront(const Settings& settings,
                                            const Environment& environment);

}  // namespace quillet
