// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace quillet {

/// Room for a large text. Unlike a std::string's, its memory is not set before something is written
/// there, so that the system hands out no page of it that stays unused.
class TextBuffer {
 public:
  TextBuffer() = default;
  explicit TextBuffer(std::size_t capacity)
      : bytes_(std::make_unique_for_overwrite<char[]>(capacity)), capacity_(capacity) {}
  /// A copy of the text.
  static TextBuffer of(std::string_view text) {
    TextBuffer buffer(text.size());
    buffer.size_ = text.copy(buffer.data(), text.size());
    return buffer;
  }

  [[nodiscard]] char* data() { return bytes_.get(); }
  [[nodiscard]] std::size_t capacity() const { return capacity_; }

  /// Says how many bytes have been written from data() on.
  void setSize(std::size_t size) { size_ = size; }

  [[nodiscard]] std::string_view view() const { return {bytes_.get(), size_}; }

 private:
  std::unique_ptr<char[]> bytes_;
  std::size_t capacity_ = 0;
  std::size_t size_ = 0;
};

}  // namespace quillet
