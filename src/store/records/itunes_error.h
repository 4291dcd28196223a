// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace quillet {

/// What Apple's services answered instead of an answer.
class ITunesError : public std::runtime_error {
 public:
  enum class Kind {
    httpStatus,  ///< a status outside 200 to 299
    invalidURL,  ///< the request could not be formed; nothing was sent
    emptyFeed,   ///< a chart that no source could give
  };

  /// `body`: of the answer, as far as it is known.
  [[nodiscard]] static ITunesError httpStatus(int status, std::string_view body = {});
  [[nodiscard]] static ITunesError invalidURL();
  [[nodiscard]] static ITunesError emptyFeed();

  [[nodiscard]] Kind kind() const { return kind_; }
  /// The HTTP status; 0 for the other kinds.
  [[nodiscard]] int status() const { return status_; }
  /// Whether the store wants fewer requests: 429, or 403 without a body, as its search often says
  /// it. Nothing is wrong with this request.
  [[nodiscard]] bool isRateLimit() const { return isRateLimit_; }
  /// This, or any other 403 (of a proxy, for one): what works unattended stops asking.
  [[nodiscard]] bool isRefusal() const { return status_ == 429 || status_ == 403; }

 private:
  ITunesError(Kind kind, int status, const std::string& description, bool isRateLimit = false);

  Kind kind_;
  int status_;
  bool isRateLimit_;
};

}  // namespace quillet
