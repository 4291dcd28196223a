// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/inflater.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/errors.h"
#include "publisher/gzip_file.h"

namespace quillet {
namespace {

constexpr std::size_t noLimit = std::size_t{1024} * 1024;

TEST(Inflater, UnpacksAnythingThatBeginsAsGzipInPiecesOfAnySize) {
  const std::string one = gzipped("one");
  struct Row {
    const char* situation;
    std::string packed;
    std::string plain;
    bool complete;
  };
  const Row rows[] = {
      {"nothing", "", "", true},
      {"one file", one, "one", true},
      {"nothing inside", gzipped(""), "", true},
      {"two in a row", one + gzipped("two"), "onetwo", true},
      {"padded before another", one + std::string(9, '\0') + one, "one", true},
      {"larger than a piece", gzipped(std::string(200'000, 'x')), std::string(200'000, 'x'), true},
      {"cut in its trailer", one.substr(0, one.size() - 1), "one", false},
      {"second one cut", one + gzipped("two").substr(0, 5), "one", false},
  };
  for (const Row& row : rows) {
    for (const std::size_t size : {std::size_t{1}, std::size_t{7}, noLimit}) {
      Inflater inflater;
      std::string plain;
      for (std::size_t i = 0; i < row.packed.size(); i += size) {
        inflater.append(std::string_view(row.packed).substr(i, size), noLimit, plain);
      }
      EXPECT_EQ(plain, row.plain) << row.situation;
      EXPECT_EQ(inflater.isComplete(), row.complete) << row.situation << " by " << size;
    }
  }
}

TEST(Inflater, RefusesBrokenBytesAndStopsBeyondTheLimit) {
  std::string damaged = gzipped("a text that is damaged in its check sum");
  damaged[damaged.size() - 6] ^= 1;
  for (const std::string& bytes : {std::string("{\"json\": 1}"), damaged}) {
    Inflater inflater;
    std::string plain;
    EXPECT_THROW(inflater.append(bytes, noLimit, plain), DecodingError);
  }
  Inflater inflater;
  std::string plain;
  inflater.append(gzipped(std::string(8 * noLimit, '\0')), noLimit, plain);
  EXPECT_GT(plain.size(), noLimit);
  EXPECT_LT(plain.size(), 2 * noLimit);
}

}  // namespace
}  // namespace quillet
