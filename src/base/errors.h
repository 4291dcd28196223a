// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace quillet {

/// Bytes that are not what their sender promised: text that is no JSON, JSON of another shape.
class DecodingError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// An answer of a service that cannot be decoded. The text is a sentence for people.
class UnreadableAnswer : public DecodingError {
 public:
  /// `whose`: with a capital, such as "Apple's answer". `reason`: a clause.
  UnreadableAnswer(const std::string& whose, std::string reason)
      : DecodingError(whose + " could not be read: " + reason + '.'), reason_(std::move(reason)) {}

  [[nodiscard]] const std::string& reason() const { return reason_; }

 private:
  std::string reason_;
};

/// A library that cannot be opened, read or written. The text is a sentence for people.
class DatabaseError : public std::runtime_error {
 public:
  enum class Kind {
    failed,   ///< the disk, the folder or the file's content
    inUse,    ///< another process writes to it
    newer,    ///< of a newer Quillet
    foreign,  ///< no library
  };

  explicit DatabaseError(const std::string& text, Kind kind = Kind::failed)
      : std::runtime_error(text), kind_(kind) {}

  [[nodiscard]] Kind kind() const { return kind_; }

 private:
  Kind kind_;
};

/// A file that the user chose and that cannot be read or written. The text is a sentence for people
/// that names it.
class FileError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// An address or setting handed to the program that cannot be used; the text names the variable or
/// key that holds it.
class BadSetting : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// A transfer that brought no HTTP answer. The text is one clause without a full stop, for people.
class NetworkError : public std::runtime_error {
 public:
  enum class Kind {
    cancelled,     ///< stopped by us
    notConnected,  ///< no network at all: asking again cannot help
    cannotReach,   ///< host unknown, refused, lost, timed out, no route
    tooLarge,      ///< the body passed the request's limit
    failed,        ///< anything else: TLS refused, redirects in a circle, a broken encoding
  };

  NetworkError(Kind kind, const std::string& description)
      : std::runtime_error(description), kind_(kind) {}

  [[nodiscard]] Kind kind() const { return kind_; }

 private:
  Kind kind_;
};

}  // namespace quillet
