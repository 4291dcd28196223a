// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <stdexcept>
#include <string>

namespace quillet {

/// What Apple's services answered instead of an answer.
class ITunesError : public std::runtime_error {
 public:
  enum class Kind {
    httpStatus,  ///< a status outside 200 to 299
    invalidURL,  ///< the request could not be formed; nothing was sent
    emptyFeed,   ///< a chart that does not exist
  };

  [[nodiscard]] static ITunesError httpStatus(int status);
  [[nodiscard]] static ITunesError invalidURL();
  [[nodiscard]] static ITunesError emptyFeed();

  [[nodiscard]] Kind kind() const { return kind_; }
  /// The HTTP status; 0 for the other kinds.
  [[nodiscard]] int status() const { return status_; }
  /// Whether the store wants fewer requests; nothing is wrong with this one.
  [[nodiscard]] bool isRefusal() const { return status_ == 429 || status_ == 403; }

 private:
  ITunesError(Kind kind, int status, const std::string& description);

  Kind kind_;
  int status_;
};

}  // namespace quillet
