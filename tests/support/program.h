// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <signal.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <string>
#include <utility>

namespace quillet {

/// A program beside the test, which reads what it prints. Killed with this object at the latest.
class Program {
 public:
  /// Of a shell script that ends with "exec" and the program.
  explicit Program(const std::string& script)
      : output_(::popen(("echo $$; " + script).c_str(), "re")), id_(std::stoi(line())) {}
  ~Program() {
    if (output_ != nullptr) (void)end(SIGKILL);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  [[nodiscard]] pid_t id() const { return id_; }

  /// The next line of its output without the line feed; empty at the end.
  [[nodiscard]] std::string line() {
    std::array<char, 1000> buffer{};
    if (!std::fgets(buffer.data(), buffer.size(), output_)) return {};
    std::string text = buffer.data();
    if (text.ends_with('\n')) text.pop_back();
    return text;
  }

  /// The lines that are left, up to an empty one.
  [[nodiscard]] std::string lines() {
    std::string text;
    for (std::string next = line(); !next.empty(); next = line()) text += next + '\n';
    return text;
  }

  /// What it ends with; -1 when a signal killed it.
  [[nodiscard]] int status() {
    const int waited = ::pclose(std::exchange(output_, nullptr));
    return WIFEXITED(waited) ? WEXITSTATUS(waited) : -1;
  }

  [[nodiscard]] int end(int signal) {
    ::kill(id_, signal);
    return status();
  }

 private:
  std::FILE* output_;
  pid_t id_;
};

}  // namespace quillet
