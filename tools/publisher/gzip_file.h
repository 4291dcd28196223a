// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace quillet {

/// Takes bytes piece by piece.
using TakeBytes = std::function<void(std::string_view bytes)>;

/// Packs bytes that come piece by piece as a gzip file without a name or time in it: the same for
/// the same bytes.
class GzipPacker {
 public:
  explicit GzipPacker(TakeBytes take);
  ~GzipPacker();
  GzipPacker(const GzipPacker&) = delete;
  GzipPacker& operator=(const GzipPacker&) = delete;

  void add(std::string_view bytes) { pack(bytes, false); }
  /// Once, after all bytes.
  void end() { pack({}, true); }

 private:
  struct Stream;

  void pack(std::string_view bytes, bool isLast);

  TakeBytes take_;
  std::unique_ptr<Stream> stream_;
};

[[nodiscard]] std::string gzipped(std::string_view bytes);

}  // namespace quillet
