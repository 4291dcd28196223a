// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quillet {

/// A part of the program in a library of its own, which the executable opens when it is wanted.
class Module {
 public:
  /// Where the module lies: beside the resolved executable, else in the library folder of the
  /// installation that it belongs to. Absent where it is in neither.
  [[nodiscard]] static std::optional<Module> find(std::string_view name);

  /// Opens the module and runs its one entry on the process's arguments; returns its status.
  /// Throws std::runtime_error with the loader's reason when it does not open.
  [[nodiscard]] int run(int argc, char** argv) const;

 private:
  explicit Module(std::filesystem::path file) : file_(std::move(file)) {}

  std::filesystem::path file_;
};

}  // namespace quillet
