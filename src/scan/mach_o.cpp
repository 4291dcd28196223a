// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "scan/mach_o.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/errors.h"

namespace quillet {
namespace {

enum class ByteOrder { big, little };

/// How a file begins, and where what it is compiled for stands from there on.
struct Form {
  std::uint32_t magic;
  bool joinsSeveral;
  std::size_t entrySize;
};

constexpr std::array<Form, 4> kForms{{
    {0xFEEDFACE, false, 0},  // for one processor of 32 bits
    {0xFEEDFACF, false, 0},  // of 64
    {0xCAFEBABE, true, 20},  // several, with places of 32 bits
    {0xCAFEBABF, true, 32},  // of 64
}};

/// A compiled Java class begins as a joined file does, with its version, 45 or more, where the
/// number of architectures stands. No executable joins as many.
constexpr std::uint32_t kMostJoined = 32;

/// The number at `place`, which must be there.
std::uint32_t numberAt(std::string_view bytes, std::size_t place, ByteOrder order) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    const std::size_t next = order == ByteOrder::big ? i : 3 - i;
    number = number << 8 | static_cast<unsigned char>(bytes[place + next]);
  }
  return number;
}

/// The kind of processor, as numbered by the system; the high bit tells those of 64 bits.
CpuArchitecture architectureOf(std::uint32_t cpuType) {
  switch (cpuType) {
    case 0x0100000C: return CpuArchitecture::arm64;
    case 0x01000007: return CpuArchitecture::x8664;
    case 7: return CpuArchitecture::i386;
    case 18:
    case 0x01000012: return CpuArchitecture::powerPc;
    default: return CpuArchitecture::other;
  }
}

CpuArchitectures joined(std::string_view head, ByteOrder order, std::size_t entrySize) {
  constexpr std::size_t kFirstEntry = 8;
  const std::uint32_t count = numberAt(head, 4, order);
  if (count == 0 || count > kMostJoined) throw DecodingError("it is no executable");
  if (kFirstEntry + count * entrySize > head.size()) throw DecodingError("it ends too early");
  CpuArchitectures architectures;
  for (std::uint32_t i = 0; i < count; ++i) {
    architectures.insert(architectureOf(numberAt(head, kFirstEntry + i * entrySize, order)));
  }
  return architectures;
}

}  // namespace

CpuArchitectures architecturesOf(std::string_view head) {
  if (head.size() < 8) throw DecodingError("it ends too early");
  for (const ByteOrder order : {ByteOrder::big, ByteOrder::little}) {
    const std::uint32_t magic = numberAt(head, 0, order);
    const auto* form = std::find_if(kForms.begin(), kForms.end(),
                                    [&](const Form& known) { return known.magic == magic; });
    if (form == kForms.end()) continue;
    if (form->joinsSeveral) return joined(head, order, form->entrySize);
    return {architectureOf(numberAt(head, 4, order))};
  }
  throw DecodingError("it is no executable");
}

}  // namespace quillet
