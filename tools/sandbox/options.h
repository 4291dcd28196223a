// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "sandbox/fault.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// What the command line asks for.
struct Options {
  int port = 0;
  StoreOptions store;
  std::vector<Fault> faults;
  std::string library;  ///< the folder of a sample library; empty: none
  bool hasPictures = true;
  bool isLogging = false;
  std::string answer;                ///< what to print instead of serving: the help or the version
  std::vector<std::string> command;  ///< what stood behind "--"; empty: serve until told to end
};

/// A command line that cannot be followed; the text says why.
class BadUsage : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Reads the arguments after the program's name; without --today the store's day is `today`.
/// Throws BadUsage.
[[nodiscard]] Options parseOptions(std::span<const std::string> arguments,
                                   std::chrono::sys_days today);

[[nodiscard]] std::string helpText();

}  // namespace quillet::sandbox
