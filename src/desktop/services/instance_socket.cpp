// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/instance_socket.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <string_view>

#include "desktop/services/instance_message.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// Far more than the few milliseconds that an answer takes, even of a busy window.
constexpr auto kAnswerTimeout = 5s;
// A large library takes so long to open after an update, on a slow disk.
constexpr auto kServiceTimeout = 60s;

constexpr mode_t kOwnerOnly = 0600;
constexpr int kMostWaiting = 50;

#ifdef MSG_NOSIGNAL
constexpr int kNoSignal = MSG_NOSIGNAL;
#else
constexpr int kNoSignal = 0;  // the process ignores the signal
#endif

/// Not by flags of socket(), which not every system has.
Descriptor newSocket() {
  Descriptor made(::socket(AF_UNIX, SOCK_STREAM, 0));
  if (!made.isOpen()) return made;
  ::fcntl(made.get(), F_SETFD, FD_CLOEXEC);
  ::fcntl(made.get(), F_SETFL, O_NONBLOCK);
  return made;
}

/// Calls ::bind() or ::connect().
template <typename Call>
bool callWithAddress(Call call, const Descriptor& socket, const std::filesystem::path& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.native().copy(address.sun_path, sizeof address.sun_path - 1);
  return call(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

/// Whether `events` came before the deadline.
bool waitFor(const Descriptor& socket, short events, Clock::time_point deadline) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
  pollfd waiting{.fd = socket.get(), .events = events, .revents = 0};
  const int ready = ::poll(&waiting, 1, static_cast<int>(std::max(left, 0ms).count()));
  return ready != 0;  // an error is found by the next call
}

/// One that takes no more connections is there all the same.
Delivery connectTo(const Descriptor& socket, const std::filesystem::path& path) {
  if (callWithAddress(::connect, socket, path)) return Delivery::taken;
  return errno == EAGAIN ? Delivery::silent : Delivery::gone;
}

Delivery sendAll(const Descriptor& socket, std::string_view message) {
  const auto deadline = Clock::now() + kAnswerTimeout;
  while (!message.empty()) {
    const ssize_t sent = ::send(socket.get(), message.data(), message.size(), kNoSignal);
    if (sent >= 0) {
      message.remove_prefix(static_cast<std::size_t>(sent));
    } else if (errno != EAGAIN && errno != EINTR) {
      return Delivery::gone;
    } else if (!waitFor(socket, POLLOUT, deadline)) {
      return Delivery::silent;
    }
  }
  return Delivery::taken;
}

Delivery awaitAnswer(const Descriptor& socket) {
  auto deadline = Clock::now() + kAnswerTimeout;
  while (waitFor(socket, POLLIN, deadline)) {
    char answer = 0;
    const ssize_t count = ::read(socket.get(), &answer, 1);
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) continue;
    if (count <= 0) return Delivery::gone;
    if (answer == kInstanceTakes) return Delivery::taken;
    if (answer == kInstanceCannotShow) return Delivery::takenWithoutWindow;
    if (answer == kInstanceKeepsWaiting) deadline = Clock::now() + kServiceTimeout;
  }
  return Delivery::silent;
}

}  // namespace

bool canBeSocket(const std::filesystem::path& socket) {
  return socket.native().size() < sizeof(sockaddr_un::sun_path);
}

Descriptor listenAt(const std::filesystem::path& socket) {
  if (!canBeSocket(socket)) return {};
  ::unlink(socket.c_str());
  Descriptor listener = newSocket();
  if (!listener.isOpen() || !callWithAddress(::bind, listener, socket)) return {};
  if (::chmod(socket.c_str(), kOwnerOnly) != 0) return {};
  if (::listen(listener.get(), kMostWaiting) != 0) return {};
  return listener;
}

Delivery deliver(const std::filesystem::path& socket, const std::string& message) {
  const Descriptor connection = newSocket();
  if (socket.empty() || !canBeSocket(socket) || !connection.isOpen()) return Delivery::gone;
  Delivery state = connectTo(connection, socket);
  if (state == Delivery::taken) state = sendAll(connection, message);
  if (state == Delivery::taken) state = awaitAnswer(connection);
  return state;
}

}  // namespace quillet
