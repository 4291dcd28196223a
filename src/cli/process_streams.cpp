// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/process_streams.h"

#include <fmt/format.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

#include "base/numbers.h"
#include "cli/cli_error.h"
#include "system/user_locale.h"

namespace quillet {

namespace {

constexpr std::size_t kUsualWidth = 80;

/// The user's word on it; 0 where there is none.
std::size_t widthAskedFor(const Environment& environment) {
  const auto columns = parseWhole(environment.get("COLUMNS").value_or(""));
  return columns && *columns > 0 ? static_cast<std::size_t>(*columns) : 0;
}

bool takesEscapes(const Environment& environment) {
  return !environment.get("NO_COLOR") && environment.get("TERM").value_or("dumb") != "dumb";
}

extern "C" void eraseLineAndEnd(int signal) {
  constexpr std::string_view kErase = "\r\x1B[K";
  // Nothing can be done about a failure here.
  [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, kErase.data(), kErase.size());
  // The usual action is in force again; it follows when this handler returns.
  raise(signal);
}

/// A pipe or terminal that its other users made non-blocking takes no more until it was read from.
void waitUntilWritable(int descriptor) {
  pollfd wanted{.fd = descriptor, .events = POLLOUT, .revents = 0};
  poll(&wanted, 1, -1);
}

}  // namespace

void FileDescriptorStream::write(std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(descriptor_, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0 && errno == EAGAIN) {
      waitUntilWritable(descriptor_);
      continue;
    }
    if (written < 0 && (errno == EPIPE || failure_ == WriteFailure::ignore)) return;
    if (written < 0) {
      throw CLIError(CLIError::Code::internal,
                     fmt::format("The output could not be written: {}.", std::strerror(errno)));
    }
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

TextStyle textStyleOf(int descriptor, const Environment& environment) {
  TextStyle style;
  style.utf8 = usesUtf8(environment);
  style.width = terminalColumns(descriptor, environment);
  style.isWhole = style.width == 0;
  style.colour = style.width > 0 && takesEscapes(environment);
  if (style.width == 0) style.width = widthAskedFor(environment);
  return style;
}

std::size_t terminalColumns(int descriptor, const Environment& environment) {
  if (isatty(descriptor) != 1) return 0;
  winsize size{};
  if (ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
  const std::size_t asked = widthAskedFor(environment);
  return asked > 0 ? asked : kUsualWidth;
}

std::size_t progressWidth(int descriptor, const Environment& environment) {
  return takesEscapes(environment) ? terminalColumns(descriptor, environment) : 0;
}

void eraseLineOnInterrupt() {
  struct sigaction action{};
  action.sa_handler = eraseLineAndEnd;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction before{};
    sigaction(signal, nullptr, &before);
    if (before.sa_handler != SIG_IGN) sigaction(signal, &action, nullptr);
  }
}

}  // namespace quillet
