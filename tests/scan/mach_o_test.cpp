// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "scan/mach_o.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/errors.h"
#include "support/message_of.h"

namespace quillet {
namespace {

using Architectures = CpuArchitectures;
using enum CpuArchitecture;

/// Numbers as bytes, the most significant first.
std::string big(const std::vector<std::uint32_t>& numbers) {
  std::string bytes;
  for (const std::uint32_t number : numbers) {
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift & 0xFF);
  }
  return bytes;
}

/// The same, the least significant first.
std::string little(const std::vector<std::uint32_t>& numbers) {
  std::string bytes = big(numbers);
  for (std::size_t i = 0; i < bytes.size(); i += 4) {
    std::swap(bytes[i], bytes[i + 3]);
    std::swap(bytes[i + 1], bytes[i + 2]);
  }
  return bytes;
}

constexpr std::uint32_t kArm64 = 0x0100000C;
constexpr std::uint32_t kIntel64 = 0x01000007;
constexpr std::uint32_t kWatch = 0x0200000C;  // 64 bits with addresses of 32

TEST(MachO, NamesWhatAnExecutableIsCompiledFor) {
  struct Row {
    const char* what;
    std::string head;
    Architectures expected;
  };
  const std::vector<std::uint32_t> joined{0xCAFEBABE, 2,      kIntel64, 3,     4096, 9,
                                          12,         kArm64, 0,        16384, 9,    14};
  const std::vector<std::uint32_t> joinedWide{0xCAFEBABF, 2,      kWatch, 0, 0,    4096, 0, 9,  12,
                                              0,          kArm64, 0,      0, 8192, 0,    9, 14, 0};
  const std::vector<Row> rows{
      {"64 bits", little({0xFEEDFACF, kArm64}), {arm64}},
      {"64 bits, other order", big({0xFEEDFACF, 0x01000012}), {powerPc}},
      {"32 bits", little({0xFEEDFACE, 7}), {i386}},
      {"32 bits, other order", big({0xFEEDFACE, 18}), {powerPc}},
      {"unknown", little({0xFEEDFACF, 0x01000099}), {other}},
      {"joined", big(joined), {x8664, arm64}},
      {"joined, other order", little(joined), {x8664, arm64}},
      {"joined, wide", big(joinedWide), {other, arm64}},
  };
  for (const Row& row : rows) EXPECT_EQ(architecturesOf(row.head), row.expected) << row.what;
}

TEST(MachO, RefusesEverythingElse) {
  const std::vector<std::pair<std::string, std::string>> rows{
      {"", "it ends too early"},
      {"\xCF\xFA\xED\xFE\x07", "it ends too early"},
      {"#!/bin/sh\nexec true\n", "it is no executable"},
      {big({0xCAFEBABE, 0}), "it is no executable"},
      {big({0xCAFEBABE, 0x00000034}) + std::string(4000, '\0'), "it is no executable"},  // Java
      {big({0xCAFEBABE, 0xFFFFFFFF}) + std::string(4000, '\0'), "it is no executable"},
      {big({0xCAFEBABE, 2}) + std::string(39, '\0'), "it ends too early"},
  };
  for (const auto& [head, expected] : rows) {
    EXPECT_EQ(messageOf<DecodingError>([&] { static_cast<void>(architecturesOf(head)); }),
              expected);
  }
}

}  // namespace
}  // namespace quillet
