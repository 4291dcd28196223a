// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/inflate_whole.h"

#include <libdeflate.h>
#include <sys/mman.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <new>

#include "base/errors.h"

namespace quillet {
namespace {

/// Gzip does not pack better; a larger size in a trailer is a lie.
constexpr std::size_t kBestRatio = 1032;
constexpr std::size_t kTrailerSize = 4;

struct Freer {
  void operator()(libdeflate_decompressor* decompressor) const {
    libdeflate_free_decompressor(decompressor);
  }
};
using Decompressor = std::unique_ptr<libdeflate_decompressor, Freer>;

Decompressor newDecompressor() {
  Decompressor decompressor(libdeflate_alloc_decompressor());
  if (!decompressor) throw std::bad_alloc();
  return decompressor;
}

/// The inflated size that the trailer tells, modulo 2^32, in case it can be true.
std::size_t likelySize(std::string_view packed, std::size_t limit) {
  if (packed.size() < kTrailerSize) return 0;
  std::size_t size = 0;
  for (std::size_t i = 1; i <= kTrailerSize; ++i) {
    size = size * 256 + static_cast<unsigned char>(packed[packed.size() - i]);
  }
  return std::min({size, limit, packed.size() * kBestRatio});
}

/// Half of what reading a large file costs the system is handing out its pages one by one. A mere
/// hint: nothing depends on whether it is taken.
void useLargePages([[maybe_unused]] TextBuffer& buffer) {
#ifdef MADV_HUGEPAGE
  constexpr std::uintptr_t kLargePage = std::uintptr_t{2} * 1024 * 1024;
  const auto start = reinterpret_cast<std::uintptr_t>(buffer.data());
  const std::uintptr_t first = (start + kLargePage - 1) / kLargePage * kLargePage;
  const std::uintptr_t end = (start + buffer.capacity()) / kLargePage * kLargePage;
  if (first < end) madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE);
#endif
}

/// Unpacks one file behind another into the buffer; false where that has too little room.
bool inflateInto(TextBuffer& buffer, std::string_view packed) {
  const Decompressor decompressor = newDecompressor();
  std::size_t written = 0;
  do {
    std::size_t read = 0;
    std::size_t added = 0;
    const libdeflate_result result = libdeflate_gzip_decompress_ex(
        decompressor.get(), packed.data(), packed.size(), buffer.data() + written,
        buffer.capacity() - written, &read, &added);
    if (result == LIBDEFLATE_INSUFFICIENT_SPACE) return false;
    if (result != LIBDEFLATE_SUCCESS) throw DecodingError("it is no gzip, or broken");
    packed.remove_prefix(read);
    written += added;
  } while (packed.starts_with(kGzipStart.front()));
  buffer.setSize(written);
  return true;
}

}  // namespace

TextBuffer inflateWhole(std::string_view packed, std::size_t limit) {
  // What a trailer tells is the last file's size alone, and may be a lie.
  for (const std::size_t room : {likelySize(packed, limit), limit}) {
    TextBuffer buffer(room);
    useLargePages(buffer);
    if (inflateInto(buffer, packed)) return buffer;
    if (room == limit) break;
  }
  throw DecodingError("it is too large");
}

}  // namespace quillet
