// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <zlib.h>

#include <string>

namespace quillet {

/// What a gzip file holds; empty where it is none. For texts of up to a megabyte.
inline std::string unpacked(std::string packed) {
  constexpr int kGzipWindow = 15 + 16;
  std::string text(1'000'000, '\0');
  z_stream stream{};
  inflateInit2(&stream, kGzipWindow);
  stream.next_in = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_in = static_cast<uInt>(packed.size());
  stream.next_out = reinterpret_cast<Bytef*>(text.data());
  stream.avail_out = static_cast<uInt>(text.size());
  const bool whole = inflate(&stream, Z_FINISH) == Z_STREAM_END;
  text.resize(whole ? stream.total_out : 0);
  inflateEnd(&stream);
  return text;
}

}  // namespace quillet
