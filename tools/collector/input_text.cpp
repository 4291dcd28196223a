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

namespace quillet {

namespace {

constexpr std::size_t kPiece = std::size_t{64} * 1024;

/// A file that is open for reading until the end of its life.
class InputFile {
 public:
  // Without blocking: to open a pipe by its name would wait for whoever writes into it.
  explicit InputFile(const std::string& name)
      : name_(name), descriptor_(::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {
    if (descriptor_ < 0) fail();
  }
  explicit InputFile(int descriptor) : name_("-"), descriptor_(descriptor) {}
  ~InputFile() {
    if (descriptor_ > STDIN_FILENO) ::close(descriptor_);
  }
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  /// Appends what there is to `text`; false at the end.
  bool read(std::string& text, StopWatch& stop) const {
    std::array<char, kPiece> piece{};
    // A pipe into which nobody has written yet would read as one that is at its end.
    stop.wait(descriptor_, POLLIN);
    const ssize_t size = ::read(descriptor_, piece.data(), piece.size());
    if (size < 0 && errno != EAGAIN && errno != EINTR) fail();
    if (size > 0) text.append(piece.data(), static_cast<std::size_t>(size));
    return size != 0;
  }

 private:
  [[noreturn]] void fail() const {
    throw BadUsage(fmt::format("The file {} cannot be read.", name_));
  }

  std::string name_;
  int descriptor_;
};

std::string contentOf(const InputFile& file, StopWatch& stop) {
  std::string text;
  while (file.read(text, stop)) continue;
  return text;
}

}  // namespace

std::string inputText(const std::string& file, StopWatch stop) {
  return file == "-" ? contentOf(InputFile(STDIN_FILENO), stop) : contentOf(InputFile(file), stop);
}

}  // namespace quillet
