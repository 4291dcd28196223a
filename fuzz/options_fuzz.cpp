// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/text.h"
#include "cli/cli_error.h"
#include "cli/command_line_options.h"
#include "fuzzing.h"

using namespace quillet;

/// The arguments are the input's lines.
void quillet::tryInput(std::string_view input) {
  std::vector<std::string> arguments;
  for (const std::string_view line : split(input, '\n')) arguments.emplace_back(line);
  try {
    const CLIOptions options = parseOptions(arguments, "us");
    require(options.limit >= 1 && options.limit <= 200, "the limit is from 1 to 200");
    require(options.retries >= 0 && options.retries <= 5, "the retries are from 0 to 5");
    require(options.country.size() == 2, "the country is two letters");
  } catch (const CLIError& error) {
    const std::string text = renderError(error, OutputForm::text);
    require(isValidUtf8(text), "an error's text is valid UTF-8");
    require(text.find('\x1B') == std::string::npos, "an error drives no terminal");
    require(!renderError(error, OutputForm::json).empty(), "an error can be written as JSON");
  }
}
