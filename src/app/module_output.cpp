// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "app/module_output.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <exception>

#ifdef __linux__
#include <sys/prctl.h>
#endif

#include "cli/process_streams.h"

namespace quillet {

namespace {

constexpr int kFailure = 3;

/// The process that runs the module: it never returns into what its parent was doing.
[[noreturn]] void runAsChild(const Module& module, int argc, char** argv, int output) {
#ifdef __linux__
  // Nobody reads the answer when the parent is gone.
  prctl(PR_SET_PDEATHSIG, SIGINT);
#endif
  int status = kFailure;
  try {
    dup2(output, STDOUT_FILENO);
    status = module.run(argc, argv);
  } catch (const std::exception& error) {
    FileDescriptorStream(STDERR_FILENO, WriteFailure::ignore)
        .write(std::string("quillet: ") + error.what() + '\n');
  }
  _exit(status);
}

std::string readAll(int descriptor) {
  std::string text;
  std::array<char, 512> piece{};
  for (;;) {
    const ssize_t count = read(descriptor, piece.data(), piece.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return text;
    text.append(piece.data(), static_cast<std::size_t>(count));
  }
}

}  // namespace

std::string outputOf(const Module& module, int argc, char** argv) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return {};
  const pid_t child = fork();
  if (child == 0) runAsChild(module, argc, argv, ends[1]);
  close(ends[1]);
  std::string text = child > 0 ? readAll(ends[0]) : std::string();
  close(ends[0]);
  if (child > 0) waitpid(child, nullptr, 0);
  return text;
}

}  // namespace quillet
