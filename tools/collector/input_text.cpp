// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/input_text.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "collector/options.h"
#include "system/descriptor.h"

namespace quillet {

namespace {

constexpr std::size_t kPiece = std::size_t{64} * 1024;

/// A file that is open for reading.
class InputFile {
 public:
  // Without blocking: to open a pipe by its name would wait for whoever writes into it.
  explicit InputFile(const std::string& name)
      : name_(name), descriptor_(::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {
    if (!descriptor_.isOpen()) fail();
  }
  /// Standard input.
  InputFile() : name_("-"), descriptor_(::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)) {
    if (!descriptor_.isOpen()) fail();
  }

  /// Appends what there is to `text`; false at the end.
  bool read(std::string& text, StopWatch& stop) const {
    std::array<char, kPiece> piece{};
    // A pipe into which nobody has written yet would read as one that is at its end.
    stop.wait(descriptor_.get(), POLLIN);
    const ssize_t size = ::read(descriptor_.get(), piece.data(), piece.size());
    if (size < 0 && errno != EAGAIN && errno != EINTR) fail();
    if (size > 0) text.append(piece.data(), static_cast<std::size_t>(size));
    return size != 0;
  }

 private:
  [[noreturn]] void fail() const {
    throw BadUsage(fmt::format("The file {} cannot be read.", name_));
  }

  std::string name_;
  Descriptor descriptor_;
};

std::string contentOf(const InputFile& file, StopWatch& stop) {
  std::string text;
  while (file.read(text, stop)) continue;
  return text;
}

}  // namespace

std::string inputText(const std::string& file, StopWatch stop) {
  return file == "-" ? contentOf(InputFile(), stop) : contentOf(InputFile(file), stop);
}

}  // namespace quillet
