// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

struct z_stream_s;

namespace quillet {

/// Undoes gzip, piece by piece. Several gzip files in a row unpack to one text; what follows them
/// and does not begin like another is ignored, to the end.
class Inflater {
 public:
  Inflater();

  /// Unpacks the next piece to the end of `out`, and stops early once `out` holds more than `limit`
  /// bytes. Throws DecodingError for bytes that are no gzip.
  void append(std::string_view packed, std::size_t limit, std::string& out);

  /// False in the middle of a file: what was packed has been cut off. No bytes at all are complete.
  [[nodiscard]] bool isComplete() const { return state_ != State::inside; }

 private:
  enum class State { fresh, inside, ended, beyond };
  struct Closer {
    void operator()(z_stream_s* stream) const;
  };

  bool unpackSome(std::string& out);
  bool hasMore();

  std::unique_ptr<z_stream_s, Closer> stream_;
  State state_ = State::fresh;
};

}  // namespace quillet
