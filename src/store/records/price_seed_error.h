// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace quillet {

/// Why a storefront's published price data cannot be had. The text is a sentence for people; it
/// ends the reading of that storefront alone.
class PriceSeedError : public std::runtime_error {
 public:
  enum class Kind {
    nothingPublished,  ///< there is no such file, or no app in it
    failed,            ///< the server failed, or the file is damaged or of a newer form
  };

  [[nodiscard]] static PriceSeedError httpStatus(int status, std::string_view address);
  [[nodiscard]] static PriceSeedError unreadable(std::string_view country);
  [[nodiscard]] static PriceSeedError newer();
  [[nodiscard]] static PriceSeedError empty(std::string_view country);

  [[nodiscard]] Kind kind() const { return kind_; }
  /// Whether a folder of this machine has no such file, rather than a server.
  [[nodiscard]] bool isOfFolder() const { return isOfFolder_; }

 private:
  PriceSeedError(Kind kind, const std::string& message, bool isOfFolder = false)
      : std::runtime_error(message), kind_(kind), isOfFolder_(isOfFolder) {}

  Kind kind_;
  bool isOfFolder_;
};

}  // namespace quillet
