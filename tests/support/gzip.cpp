// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "support/gzip.h"

#include <zlib.h>

#include <stdexcept>

namespace quillet {
namespace {

constexpr int gzipWindow = 15 + 16;  // the largest window, with gzip's head and trailer
constexpr int defaultMemory = 8;

}  // namespace

std::string gzip(std::string_view plain) {
  z_stream stream{};
  deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, gzipWindow, defaultMemory,
               Z_DEFAULT_STRATEGY);
  std::string input(plain);
  std::string packed(deflateBound(&stream, input.size()), '\0');
  stream.next_in = reinterpret_cast<Bytef*>(input.data());
  stream.avail_in = static_cast<uInt>(input.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  const int status = deflate(&stream, Z_FINISH);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  if (status != Z_STREAM_END) throw std::runtime_error("The text could not be packed");
  return packed;
}

}  // namespace quillet
