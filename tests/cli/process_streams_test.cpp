// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/process_streams.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <future>

#include "support/map_environment.h"

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

/// A terminal of so many columns; 0: it does not say.
class Terminal {
 public:
  explicit Terminal(unsigned short columns) : master_(posix_openpt(O_RDWR | O_NOCTTY)) {
    grantpt(master_);
    unlockpt(master_);
    slave_ = open(ptsname(master_), O_RDWR | O_NOCTTY);
    const winsize size{.ws_row = 24, .ws_col = columns, .ws_xpixel = 0, .ws_ypixel = 0};
    ioctl(slave_, TIOCSWINSZ, &size);
  }
  ~Terminal() {
    close(slave_);
    close(master_);
  }
  Terminal(const Terminal&) = delete;
  [[nodiscard]] int descriptor() const { return slave_; }

 private:
  int master_;
  int slave_ = -1;
};

TEST(TextStyleOf, TakesColumnsWhereNoTerminalSaysItsWidth) {
  const Terminal wide(132);
  const Terminal silent(0);
  const int file = open("/dev/null", O_WRONLY);
  const std::tuple<const char*, int, const char*, std::size_t, bool> rows[] = {
      {"a terminal knows best", wide.descriptor(), "40", 132, false},
      {"a terminal that does not say", silent.descriptor(), "40", 40, false},
      {"nobody says", silent.descriptor(), "0", 80, false},
      {"a file without it", file, "", 0, true},
      {"a file with it", file, "60", 60, true},
  };
  for (const auto& [what, descriptor, columns, width, isWhole] : rows) {
    const MapEnvironment environment({{"COLUMNS", columns}, {"TERM", "xterm"}});
    const TextStyle style = textStyleOf(descriptor, environment);
    EXPECT_EQ(style.width, width) << what;
    EXPECT_EQ(style.isWhole, isWhole) << what;
    EXPECT_EQ(style.colour, !isWhole) << what;
    EXPECT_EQ(progressWidth(descriptor, environment), isWhole ? 0 : width) << what;
  }
  close(file);
}

}  // namespace
}  // namespace quillet
