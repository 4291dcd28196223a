// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

#include "app/module_loader.h"
#include "app/module_output.h"
#include "base/text.h"
#include "cli/dispatcher.h"
#include "cli/folding.h"
#include "cli/local/quick_json.h"
#include "cli/local/rank_history_text.h"
#include "cli/process_streams.h"
#include "system/environment.h"
#include "system/log_topics.h"
#include "system/places.h"
#include "system/settings.h"
#include "system/settings_keys.h"
#include "system/time_zone.h"
#include "system/user_locale.h"

namespace quillet {

namespace {

constexpr std::string_view kOnlineModule = "quillet-online";

struct Process {
  int argc;
  char** argv;
  const Environment& environment;
  const Streams& streams;
  LogSink queryLog;
};

/// The storefront of who names none.
struct UsualStorefront {
  std::string country;
  std::optional<std::string> unknown;  ///< what the settings name instead of a country
};

UsualStorefront findUsualStorefront(const Environment& environment) {
  const IniSettings settings(findPlaces(environment).settingsFile);
  return {defaultStorefront(settings, environment), unknownStorefront(settings)};
}

std::string unknownStorefrontRemark(const UsualStorefront& usual) {
  return fmt::format("{} in the settings is '{}', which is no country; the storefront is {}.",
                     kStorefrontCountry.key, *usual.unknown, usual.country);
}

/// What is told of a command before it runs. A person alone can do anything about an option too
/// many.
void tellRemarks(const CommandInvocation& invocation, const UsualStorefront& usual,
                 const Streams& streams) {
  const CommandId command = invocation.command->id;
  if (usual.unknown && heedsCountry(command) && !invocation.options.countryIsExplicit) {
    streams.err.write(renderRemark(unknownStorefrontRemark(usual), streams.errWidth));
  }
  if (streams.errWidth == 0) return;
  for (const std::string& remark : ignoredRemarks(invocation)) {
    streams.err.write(renderRemark(remark, streams.errWidth));
  }
}

int handOver(const Process& process, std::string_view module) {
  if (const auto found = Module::find(module)) return found->run(process.argc, process.argv);
  throw std::runtime_error(fmt::format("A part of Quillet was not found: {}.", module));
}

/// What the online module prints of this command; empty where there is none.
std::optional<std::string> askStore(const Process& process) {
  const auto module = Module::find(kOnlineModule);
  std::string answer = module ? outputOf(*module, process.argc, process.argv) : std::string();
  if (answer.ends_with('\n')) answer.pop_back();
  return answer.empty() ? std::nullopt : std::optional(std::move(answer));
}

/// The library knows the ranks of apps that it knows nothing else of, not even the name: that alone
/// is asked of the store. The library is read once, and before anything is asked.
std::string rankHistory(const Process& process, const LocalCall& call, OutputForm form) {
  CLIRankHistoryPayload payload = readRankHistory(call);
  if (!payload.name) payload.name = askStore(process);
  const TextStyle style = textStyleOf(STDOUT_FILENO, process.environment);
  const std::string text = renderRankHistory(payload, form, localTimeZone(), style);
  return form == OutputForm::json ? text : folded(text, style.width, codePointCount);
}

/// What a command prints that needs no module; absent where it needs one.
std::optional<std::string> runHere(const Process& process, const CommandInvocation& invocation,
                                   RemarkSink tell) {
  const LocalCall call{invocation.options, process.environment, process.queryLog, std::move(tell)};
  if (invocation.command->id == CommandId::rankHistory) {
    return rankHistory(process, call, invocation.form);
  }
  const JsonHandler quick = findQuickJson(invocation);
  return quick == nullptr ? std::nullopt : std::optional(quick(call));
}

int runCommand(const Process& process, const CommandInvocation& invocation) {
  if (invocation.command->need == CommandNeed::network) return handOver(process, kOnlineModule);
  Remarks remarks(process.streams);
  const auto text = runHere(process, invocation, remarks.sink());
  if (!text) return handOver(process, "quillet-local");
  process.streams.out.write(*text + '\n');
  remarks.tell();
  return static_cast<int>(ExitStatus::ok);
}

int startDesktop(const Process& process) {
  if (const auto module = Module::find("quillet-desktop")) {
    return module->run(process.argc, process.argv);
  }
  process.streams.err.write("quillet: this build has no desktop application.\n");
  return static_cast<int>(ExitStatus::failure);
}

int run(const Process& process) {
  OutputForm form = OutputForm::text;
  try {
    // A process can be started without even its own name.
    const std::vector<std::string> arguments(process.argv + std::min(process.argc, 1),
                                             process.argv + process.argc);
    UsualStorefront usual;
    const auto country = [&] {
      usual = findUsualStorefront(process.environment);
      return usual.country;
    };
    const Dispatch decision = dispatch(arguments, country, programVersion(), process.streams);
    if (const auto* status = std::get_if<ExitStatus>(&decision)) return static_cast<int>(*status);
    if (std::holds_alternative<StartDesktop>(decision)) return startDesktop(process);
    const auto& invocation = std::get<CommandInvocation>(decision);
    form = invocation.form;
    tellRemarks(invocation, usual, process.streams);
    return runCommand(process, invocation);
  } catch (...) {
    const CLIError error = toCLIError(std::current_exception());
    return static_cast<int>(reportError(error, form, process.streams));
  }
}

/// Where queries are told of, if anybody asked. A topic that there is none of is no reason to stop:
/// whoever reads the log sees the line, and nobody else does.
LogSink startLog(const Environment& environment, TextStream& err) {
  const LogTopics topics = readLogTopics(environment);
  if (!topics.unknown.empty()) err.write(unknownTopicsLine(topics) + '\n');
  return topics.db ? logSinkTo(err) : LogSink();
}

/// A standard descriptor that was closed at the start would go to the next file or socket that is
/// opened, and our output with it. Opened for reading alone, it refuses what is written instead.
void holdStandardDescriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    // Opening takes the lowest free number, which is this one.
    if (fcntl(descriptor, F_GETFD) == -1) (void)open("/dev/null", O_RDONLY);
  }
}

}  // namespace

}  // namespace quillet

int main(int argc, char** argv) {
  quillet::holdStandardDescriptors();
  // A reader that goes away early is no reason to die by a signal: writing simply ends.
  std::signal(SIGPIPE, SIG_IGN);
  const quillet::ProcessEnvironment environment;
  quillet::FileDescriptorStream out(STDOUT_FILENO, quillet::WriteFailure::report);
  quillet::FileDescriptorStream err(STDERR_FILENO, quillet::WriteFailure::ignore);
  const quillet::Streams streams{
      out, err, {}, quillet::terminalColumns(STDERR_FILENO, environment)};
  return quillet::run({argc, argv, environment, streams, quillet::startLog(environment, err)});
}
