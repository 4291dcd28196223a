// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/inflater.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/errors.h"
#include "net/inflate_whole.h"
#include "publisher/gzip_file.h"

namespace quillet {
namespace {

constexpr std::size_t noLimit = std::size_t{1024} * 1024;

TEST(Inflater, UnpacksAnythingThatBeginsAsGzipInPiecesOfAnySize) {
  const std::string one = gzipped("one");
  const std::tuple<const char*, std::string, std::string, bool> rows[] = {
      {"nothing", "", "", true},
      {"one file", one, "one", true},
      {"nothing inside", gzipped(""), "", true},
      {"two in a row", one + gzipped("two"), "onetwo", true},
      {"padded before another", one + std::string(9, '\0') + one, "one", true},
      {"larger than a piece", gzipped(std::string(200'000, 'x')), std::string(200'000, 'x'), true},
      {"cut in its trailer", one.substr(0, one.size() - 1), "one", false},
      {"second one cut", one + gzipped("two").substr(0, 5), "one", false},
  };
  for (const auto& [situation, packed, expected, isComplete] : rows) {
    for (const std::size_t size : {std::size_t{1}, std::size_t{7}, noLimit}) {
      Inflater inflater;
      std::string plain;
      for (std::size_t i = 0; i < packed.size(); i += size) {
        inflater.append(std::string_view(packed).substr(i, size), noLimit, plain);
      }
      EXPECT_EQ(plain, expected) << situation;
      EXPECT_EQ(inflater.isComplete(), isComplete) << situation << " by " << size;
    }
    if (!isComplete || packed.empty()) {
      EXPECT_THROW((void)inflateWhole(packed, noLimit), DecodingError) << situation;
    } else {
      EXPECT_EQ(inflateWhole(packed, noLimit).view(), expected) << situation;
    }
  }
}

TEST(Inflater, RefusesAWrongCheckSum) {
  std::string damaged = gzipped("a text");
  damaged[damaged.size() - 6] ^= 1;
  std::string plain;
  EXPECT_THROW(Inflater().append(damaged, noLimit, plain), DecodingError);
  EXPECT_THROW((void)inflateWhole(damaged, noLimit), DecodingError);
}

}  // namespace
}  // namespace quillet
