// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/dispatcher.h"

#include <fmt/format.h>

#include "base/store_links.h"
#include "base/text.h"

namespace quillet {

namespace {

using Arguments = std::span<const std::string>;

bool contains(Arguments arguments, std::string_view word) {
  return std::find(arguments.begin(), arguments.end(), word) != arguments.end();
}

ExitStatus printLine(const Streams& streams, const std::string& text) {
  streams.out.write(text + '\n');
  return ExitStatus::ok;
}

ExitStatus refuseWord(const Streams& streams, std::string_view word) {
  streams.err.write(
      fmt::format("quillet: unknown command '{}'.\n"
                  "Run 'quillet help' for the commands that exist.\n",
                  printable(word)));
  return ExitStatus::badUsage;
}

Dispatch dispatchSwitch(const std::string& word, const ProgramVersion& version,
                        const Streams& streams) {
  if (kHelpSwitch.isNamed(word)) return printLine(streams, helpText("", version));
  if (kVersionSwitch.isNamed(word)) return printLine(streams, versionText(version));
  return StartDesktop{};
}

/// A link copied from the store is as good as the ID in it.
void readLinks(std::vector<std::string>& operands) {
  for (std::string& operand : operands) {
    if (auto trackId = trackIdInLink(operand)) operand = std::move(*trackId);
  }
}

Dispatch dispatchCommand(const CommandRow& command, Arguments rest, const std::string& country,
                         const Streams& streams) {
  const bool json = contains(rest, "--json") || contains(rest, "--agent");
  const OutputForm form = json ? OutputForm::json : OutputForm::text;
  try {
    CommandInvocation invocation{&command, parseOptions(rest, country), form};
    if (command.takesTrackIds()) readLinks(invocation.options.operands);
    return invocation;
  } catch (const CLIError& error) {
    return reportError(error, form, streams);
  }
}

}  // namespace

std::vector<std::string> ignoredRemarks(const CommandInvocation& invocation) {
  std::vector<std::string> remarks;
  for (const OptionRow* option : ignoredOptions(invocation.command->id, invocation.options)) {
    remarks.push_back(fmt::format("{} ignores {}.", invocation.command->word, option->name));
  }
  return remarks;
}

Dispatch dispatch(Arguments arguments, const std::function<std::string()>& defaultCountry,
                  const ProgramVersion& version, const Streams& streams) {
  if (arguments.empty()) return StartDesktop{};
  const std::string& word = arguments.front();
  if (word.starts_with('-')) return dispatchSwitch(word, version, streams);
  const CommandRow* command = findCommand(word);
  if (command == nullptr) return refuseWord(streams, word);
  const Arguments rest = arguments.subspan(1);
  if (command->id == CommandId::help) {
    return printLine(streams, helpText(rest.empty() ? "" : rest.front(), version));
  }
  if (contains(rest, kHelpSwitch.name) || contains(rest, kHelpSwitch.shortName)) {
    return printLine(streams, helpText(word, version));
  }
  return dispatchCommand(*command, rest, defaultCountry(), streams);
}

}  // namespace quillet
