// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Loaded before the system's library: looks up names as slowly as where no server of names answers.

#include <netdb.h>
#include <unistd.h>

extern "C" [[gnu::visibility("default")]] int getaddrinfo(const char* /*name*/,
                                                          const char* /*service*/,
                                                          const addrinfo* /*hints*/,
                                                          addrinfo** /*found*/) noexcept(false) {
  constexpr char kAsked[] = "name asked for\n";
  [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, kAsked, sizeof kAsked - 1);
  ::sleep(20);
  return EAI_AGAIN;
}
