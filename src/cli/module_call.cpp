// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/module_call.h"

#include <unistd.h>

#include "cli/help.h"
#include "cli/process_streams.h"
#include "system/user_locale.h"

namespace quillet {

ExitStatus runModuleCall(const std::vector<std::string>& arguments,
                         ExitStatus (*run)(const ModuleCall& call)) {
  const ProcessEnvironment environment;
  const Places places = findPlaces(environment);
  const IniSettings settings(places.settingsFile);
  FileDescriptorStream out(STDOUT_FILENO, WriteFailure::report);
  FileDescriptorStream err(STDERR_FILENO, WriteFailure::ignore);
  const Streams streams{out, err, textStyleOf(STDOUT_FILENO, environment),
                        terminalColumns(STDERR_FILENO, environment)};
  const Dispatch decision = dispatch(
      arguments, [&] { return defaultStorefront(settings, environment); }, programVersion(),
      streams);
  const auto* invocation = std::get_if<CommandInvocation>(&decision);
  // The executable hands over commands alone, and has read the same arguments in the same way.
  if (invocation == nullptr) return ExitStatus::failure;
  try {
    return run({*invocation, environment, places, settings, streams});
  } catch (...) {
    return reportError(toCLIError(std::current_exception()), invocation->form, streams);
  }
}

}  // namespace quillet
