// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <optional>
#include <string>

#include "base/errors.h"
#include "fuzzing.h"
#include "net/inflate_whole.h"
#include "net/inflater.h"

using namespace quillet;

namespace {

constexpr std::size_t kLimit = 100'000;
constexpr std::size_t kMostBeyond = 128UL * 1024;  // one step of the inflater

struct Unpacked {
  std::string text;
  bool isComplete = false;
  bool operator==(const Unpacked&) const = default;
};

/// Absent for bytes that are no gzip.
std::optional<Unpacked> unpacked(std::string_view packed, std::size_t pieceSize) {
  Inflater inflater;
  Unpacked result;
  try {
    while (!packed.empty() && result.text.size() <= kLimit) {
      const auto piece = packed.substr(0, pieceSize);
      inflater.append(piece, kLimit, result.text);
      packed.remove_prefix(piece.size());
    }
  } catch (const DecodingError&) {
    return std::nullopt;
  }
  result.isComplete = inflater.isComplete();
  return result;
}

/// Absent for bytes that are no gzip and for a text beyond the limit.
std::optional<std::string> unpackedAtOnce(std::string_view packed) {
  try {
    return std::string(inflateWhole(packed, kLimit).view());
  } catch (const DecodingError&) {
    return std::nullopt;
  }
}

}  // namespace

void quillet::tryInput(std::string_view input) {
  const std::size_t pieceSize = std::max<std::size_t>(takeNumber<std::uint8_t>(input), 1);
  const auto whole = unpacked(input, input.size());
  const auto pieces = unpacked(input, pieceSize);
  if (whole) require(whole->text.size() <= kLimit + kMostBeyond, "memory is bounded");
  const bool isCutShort =
      (whole && whole->text.size() > kLimit) || (pieces && pieces->text.size() > kLimit);
  require(isCutShort || whole == pieces, "pieces unpack to the same text");
  const auto atOnce = unpackedAtOnce(input);
  if (atOnce) require(atOnce->size() <= kLimit, "the limit holds");
  if (whole && whole->isComplete && !input.empty() && !isCutShort) {
    require(atOnce == whole->text, "all at once it unpacks to the same text");
  }
}
