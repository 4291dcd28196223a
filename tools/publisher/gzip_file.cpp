// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "publisher/gzip_file.h"

#include <zlib.h>

#include <new>

namespace quillet {

namespace {

constexpr int kGzipWindow = 15 + 16;  // the largest, with a gzip head around it
constexpr int kMemory = 8;

}  // namespace

std::string gzipped(std::string_view bytes) {
  z_stream stream{};
  if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, kGzipWindow, kMemory,
                   Z_DEFAULT_STRATEGY) != Z_OK)
    throw std::bad_alloc();
  std::string result(deflateBound(&stream, bytes.size()), '\0');
  // The library reads from what it takes for writable.
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
  stream.avail_in = static_cast<uInt>(bytes.size());
  stream.next_out = reinterpret_cast<Bytef*>(result.data());
  stream.avail_out = static_cast<uInt>(result.size());
  deflate(&stream, Z_FINISH);
  result.resize(stream.total_out);
  deflateEnd(&stream);
  return result;
}

}  // namespace quillet
