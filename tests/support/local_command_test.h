// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <variant>

#include "cli/local/local_command.h"
#include "support/collected_streams.h"
#include "support/flattened.h"
#include "support/library_builder.h"
#include "support/words.h"

namespace quillet {

/// Whole command lines against a library of the test's: an American locale, storefront us.
class LocalCommandTest : public LibraryTest {
 protected:
  LocalCommandTest() { environment.set("LC_ALL", "en_US.UTF-8"); }

  /// What a command line prints, without the final line feed; or its error, as text.
  [[nodiscard]] std::string run(const Words& words) {
    CollectedStreams io;
    const Dispatch decision =
        dispatch(words, [] { return std::string("us"); }, programVersion(), io.streams());
    const auto* invocation = std::get_if<CommandInvocation>(&decision);
    if (invocation == nullptr) return io.out.content + io.err.content;
    try {
      status = ExitStatus::ok;
      told.clear();
      return runLocalCommand(*invocation,
                             {environment, formats, zone, width, {}, [this](std::string remark) {
                                told = std::move(remark);
                              }});
    } catch (const CLIError& error) {
      status = exitStatusOf(error.code());
      return renderError(error, OutputForm::text);
    }
  }

  /// What a command line prints with --json, flattened.
  [[nodiscard]] std::string json(Words words) {
    words.emplace_back("--json");
    return flattened(run(words));
  }

  std::size_t width = 0;
  std::string told;  ///< what the last command line told a person beside its text
  ExitStatus status = ExitStatus::ok;
  LocaleFormats formats{UserLocale{}};
  UtcOffsetAt zone = [](Instant) { return std::chrono::seconds(0); };
};

}  // namespace quillet
