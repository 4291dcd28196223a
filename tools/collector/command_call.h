// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "collector/options.h"
#include "collector/run.h"
#include "collector/sql_database.h"
#include "collector/stop_watch.h"
#include "system/places.h"

namespace quillet {

/// That there is nothing to do.
class NothingToDo : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// That the program is to end, and what it was at has not happened.
class StoppedBefore : public Stopped {};

/// One call of the program: what was asked for, and all that a command needs to obey.
struct CommandCall {
  CollectorWorld world;
  CollectorOptions options;
  Places places;
  StopToken stop;

  [[nodiscard]] StopWatch watch() const { return StopWatch(stop, world.stopDescriptor); }

  /// The address of the record's database.
  [[nodiscard]] std::string address() const;

  /// Opens the record. Throws DatabaseError, also where there is none, and Stopped.
  [[nodiscard]] std::unique_ptr<SqlDatabase> record() const;

  /// The folder that publish writes.
  [[nodiscard]] std::filesystem::path publishedFolder() const;

  /// Prints a line of what was asked for, unless quiet is wanted.
  void print(const std::string& line) const {
    if (!options.isQuiet) world.out(line + '\n');
  }

  /// Tells a person how things go, unless quiet is wanted.
  void say(const std::string& line) const {
    if (!options.isQuiet) warn(line);
  }

  /// Tells a person what needs somebody.
  void warn(const std::string& line) const { world.err(line + '\n'); }
};

/// What `operation` returns, which is done as a whole or not at all. Throws StoppedBefore where it
/// throws Stopped.
template <typename Operation>
auto wholly(Operation operation) {
  try {
    return operation();
  } catch (const Stopped&) {
    throw StoppedBefore();
  }
}

}  // namespace quillet
