// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/module_entry.h"
#include "cli/local/local_command.h"
#include "cli/module_call.h"
#include "cli/process_streams.h"
#include "system/log_topics.h"
#include "system/user_locale.h"

namespace quillet {

namespace {

ExitStatus runLocal(const ModuleCall& call) {
  const Streams& streams = call.streams;
  const LogSink queryLog = readLogTopics(call.environment).db ? logSinkTo(streams.err) : LogSink();
  const LocaleFormats formats(findUserLocale(call.environment));
  const UtcOffsetAt zone = localTimeZone();
  Remarks remarks(streams);
  const std::string text = runLocalCommand(
      call.invocation,
      {call.environment, formats, zone, streams.style.width, queryLog, remarks.sink()});
  streams.out.write(text + '\n');
  remarks.tell();
  return ExitStatus::ok;
}

int enter(int argc, char** argv) {
  return static_cast<int>(runModuleCall({argv + 1, argv + argc}, runLocal));
}

}  // namespace

}  // namespace quillet

QUILLET_MODULE_ENTRY(quillet::enter)
