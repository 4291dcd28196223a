// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "publisher/gzip_file.h"

#include <zlib.h>

#include <array>
#include <new>
#include <utility>

namespace quillet {

namespace {

constexpr int kGzipWindow = 15 + 16;  // the largest, with a gzip head around it
constexpr int kMemory = 8;
constexpr std::size_t kPiece = std::size_t{64} * 1024;

}  // namespace

struct GzipPacker::Stream {
  z_stream zlib{};
  std::array<char, kPiece> piece{};
};

GzipPacker::GzipPacker(TakeBytes take)
    : take_(std::move(take)), stream_(std::make_unique<Stream>()) {
  if (deflateInit2(&stream_->zlib, Z_DEFAULT_COMPRESSION, Z_DEFLATED, kGzipWindow, kMemory,
                   Z_DEFAULT_STRATEGY) != Z_OK)
    throw std::bad_alloc();
}

GzipPacker::~GzipPacker() { deflateEnd(&stream_->zlib); }

void GzipPacker::pack(std::string_view bytes, bool isLast) {
  z_stream& zlib = stream_->zlib;
  // The library reads from what it takes for writable.
  zlib.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
  zlib.avail_in = static_cast<uInt>(bytes.size());
  do {
    zlib.next_out = reinterpret_cast<Bytef*>(stream_->piece.data());
    zlib.avail_out = static_cast<uInt>(kPiece);
    deflate(&zlib, isLast ? Z_FINISH : Z_NO_FLUSH);
    const std::string_view packed(stream_->piece.data(), kPiece - zlib.avail_out);
    if (!packed.empty()) take_(packed);
  } while (zlib.avail_out == 0);
}

std::string gzipped(std::string_view bytes) {
  std::string packed;
  GzipPacker packer([&](std::string_view piece) { packed += piece; });
  packer.add(bytes);
  packer.end();
  return packed;
}

}  // namespace quillet
