// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <unistd.h>

#include "cli/local/local_command.h"
#include "cli/process_streams.h"
#include "system/environment.h"
#include "system/log_topics.h"
#include "system/places.h"
#include "system/settings.h"
#include "system/user_locale.h"

namespace quillet {

namespace {

ExitStatus runLocal(const std::vector<std::string>& arguments) {
  const ProcessEnvironment environment;
  FileDescriptorStream out(STDOUT_FILENO, WriteFailure::report);
  FileDescriptorStream err(STDERR_FILENO, WriteFailure::ignore);
  const Streams streams{out, err, textStyleOf(STDOUT_FILENO, environment),
                        terminalColumns(STDERR_FILENO, environment)};
  const IniSettings settings(findPlaces(environment).settingsFile);
  const Dispatch decision = dispatch(
      arguments, [&] { return defaultStorefront(settings, environment); }, programVersion(),
      streams);
  const auto* invocation = std::get_if<CommandInvocation>(&decision);
  // The executable hands over commands alone, and has read the same arguments in the same way.
  if (invocation == nullptr) return ExitStatus::failure;
  const LogSink queryLog = readLogTopics(environment).db ? logSinkTo(err) : LogSink();
  try {
    const LocaleFormats formats(findUserLocale(environment));
    const UtcOffsetAt zone = localTimeZone();
    Remarks remarks(streams);
    out.write(runLocalCommand(*invocation, {environment, formats, zone, streams.style.width,
                                            queryLog, remarks.sink()}) +
              '\n');
    remarks.tell();
    return ExitStatus::ok;
  } catch (...) {
    return reportError(toCLIError(std::current_exception()), invocation->form, streams);
  }
}

}  // namespace

}  // namespace quillet

// The executable has a C++ library of its own: no exception may reach it.
extern "C" __attribute__((visibility("default"))) int quillet_entry(int argc, char** argv) {
  using quillet::ExitStatus;
  try {
    return static_cast<int>(quillet::runLocal({argv + 1, argv + argc}));
  } catch (const std::exception&) {
    return static_cast<int>(ExitStatus::failure);
  }
}
