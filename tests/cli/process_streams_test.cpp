// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/process_streams.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <future>

namespace quillet {
namespace {

std::size_t bytesUntilEnd(int descriptor) {
  std::array<char, 65536> piece;
  std::size_t total = 0;
  for (;;) {
    const ssize_t count = read(descriptor, piece.data(), piece.size());
    if (count <= 0) return total;
    total += static_cast<std::size_t>(count);
  }
}

TEST(FileDescriptorStream, WaitsWhereANonBlockingPipeIsFull) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  ASSERT_EQ(fcntl(ends[1], F_SETFL, O_NONBLOCK), 0);
  // More than any pipe holds, so that writing has to wait for the reader.
  const std::string text(std::size_t{4} * 1024 * 1024, 'x');
  auto counted = std::async(std::launch::async, bytesUntilEnd, ends[0]);
  FileDescriptorStream(ends[1], WriteFailure::report).write(text);
  close(ends[1]);
  EXPECT_EQ(counted.get(), text.size());
  close(ends[0]);
}

}  // namespace
}  // namespace quillet
