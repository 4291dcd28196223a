// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/inflater.h"

#define ZLIB_CONST
#include <zlib.h>

#include <array>
#include <new>

#include "base/errors.h"

namespace quillet {
namespace {

constexpr int kGzipWindow = 15 + 16;  // the largest window, with gzip's head and trailer
constexpr Bytef kFirstGzipByte = 0x1f;
constexpr std::size_t kPieceSize = std::size_t{64} * 1024;

}  // namespace

void Inflater::Closer::operator()(z_stream_s* stream) const {
  inflateEnd(stream);
  delete stream;
}

Inflater::Inflater() : stream_(new z_stream{}) {
  if (inflateInit2(stream_.get(), kGzipWindow) != Z_OK) throw std::bad_alloc();
}

void Inflater::append(std::string_view packed, std::size_t limit, std::string& out) {
  stream_->next_in = reinterpret_cast<const Bytef*>(packed.data());
  stream_->avail_in = static_cast<uInt>(packed.size());
  while (out.size() <= limit && hasMore() && unpackSome(out)) {
  }
}

/// Whether there is a file to unpack, the next in a row included.
bool Inflater::hasMore() {
  if (state_ == State::inside) return true;
  if (stream_->avail_in == 0 || state_ == State::beyond) return false;
  if (state_ == State::ended && *stream_->next_in != kFirstGzipByte) {
    state_ = State::beyond;
    return false;
  }
  inflateReset(stream_.get());
  state_ = State::inside;
  return true;
}

/// False when the bytes at hand give no more.
bool Inflater::unpackSome(std::string& out) {
  std::array<char, kPieceSize> piece;
  stream_->next_out = reinterpret_cast<Bytef*>(piece.data());
  stream_->avail_out = static_cast<uInt>(piece.size());
  const int status = inflate(stream_.get(), Z_NO_FLUSH);
  if (status == Z_BUF_ERROR) return false;
  if (status != Z_OK && status != Z_STREAM_END) throw DecodingError("The gzip data is broken");
  out.append(piece.data(), piece.size() - stream_->avail_out);
  if (status == Z_STREAM_END) state_ = State::ended;
  return true;
}

}  // namespace quillet
