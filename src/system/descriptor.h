// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <utility>

namespace quillet {

/// A number that the system gave for an open file, folder, pipe or socket; closed at the end of its
/// life.
class Descriptor {
 public:
  Descriptor() = default;
  /// Takes over `number`; a negative one is what a call returned that failed.
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(other.release()) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor();

  [[nodiscard]] int get() const { return number_; }
  [[nodiscard]] bool isOpen() const { return number_ >= 0; }

  /// The number, which is the caller's to close from now on.
  [[nodiscard]] int release() { return std::exchange(number_, -1); }

  /// As ::close(): some file systems tell only here that the disk is full.
  [[nodiscard]] int close();

 private:
  int number_ = -1;
};

}  // namespace quillet
