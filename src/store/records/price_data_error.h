// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace quillet {

/// Why a storefront's published price data cannot be had. The text is a sentence for people; it
/// ends the reading of that storefront alone.
class PriceDataError : public std::runtime_error {
 public:
  enum class Kind {
    nothingPublished,  ///< there is no such file, or no app in it
    failed,            ///< the server failed, or the file is damaged or of a newer form
  };

  [[nodiscard]] static PriceDataError httpStatus(int status, std::string_view address);
  [[nodiscard]] static PriceDataError unreadable(std::string_view country);
  [[nodiscard]] static PriceDataError newer();
  [[nodiscard]] static PriceDataError empty(std::string_view country);

  [[nodiscard]] Kind kind() const { return kind_; }
  /// Whether a folder of this machine has no such file, rather than a server.
  [[nodiscard]] bool isOfFolder() const { return isOfFolder_; }

 private:
  PriceDataError(Kind kind, const std::string& message, bool isOfFolder = false)
      : std::runtime_error(message), kind_(kind), isOfFolder_(isOfFolder) {}

  Kind kind_;
  bool isOfFolder_;
};

}  // namespace quillet
