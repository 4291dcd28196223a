// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// What systemd runs of the program.

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "support/place.h"
#include "support/program.h"

namespace quillet {
namespace {

/// The values of a key in a unit, in their order.
std::vector<std::string> valuesIn(const std::filesystem::path& unit, const std::string& key) {
  std::vector<std::string> values;
  std::ifstream lines(unit);
  for (std::string line; std::getline(lines, line);)
    if (line.starts_with(key + '=')) values.push_back(line.substr(key.size() + 1));
  return values;
}

TEST(Units, RunCommandsThatTheProgramKnows) {
  std::vector<std::string> commands;
  for (const auto& unit : std::filesystem::directory_iterator(placeOf(QUILLET_COLLECTOR_UNITS))) {
    for (const std::string& command : valuesIn(unit.path(), "ExecStart")) {
      // A shell reads the settings and puts them into the command as systemd does. Of options the
      // program looks at each before it shows its help.
      Program program(
          fmt::format(". '{}'; exec {} --help", placeOf(QUILLET_COLLECTOR_SETTINGS), command));
      EXPECT_TRUE(program.line().starts_with("Usage: ")) << command;
      commands.push_back(command);
    }
  }
  EXPECT_EQ(commands.size(), 3U);
}

}  // namespace
}  // namespace quillet
