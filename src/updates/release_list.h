// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace quillet {

/// One release of Quillet, as a list of them tells of it.
struct Release {
  std::string version;  ///< numbers and dots
  std::string day;      ///< "2026-11-23"; empty where it is not said
  std::string notes;    ///< plain text, safe to show; may be empty
  std::string page;     ///< an https address

  friend bool operator==(const Release&, const Release&) = default;
};

/// Bytes of a list.
inline constexpr std::size_t kLargestReleaseList = std::size_t{1024} * 1024;

/// The release with the highest version in a list's JSON, the first of equal ones; absent in an
/// empty list. Throws DecodingError, a clause, where the list is no such list, or anything in it is
/// not what it has to be.
[[nodiscard]] std::optional<Release> newestRelease(const std::string& list);

}  // namespace quillet
