// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/command_runner.h"

#include <fmt/format.h>

#include "base/columns.h"
#include "cli/folding.h"
#include "cli/online/command_handlers.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

struct HandlerRow {
  CommandId id;
  CommandHandler run;
};

constexpr auto kHandlers = std::to_array<HandlerRow>({
    {CommandId::search, runSearch},
    {CommandId::info, runInfo},
    {CommandId::charts, runCharts},
    {CommandId::rankHistory, runRankHistory},
    {CommandId::screenshots, runScreenshots},
    {CommandId::reviews, runReviews},
    {CommandId::versions, runVersions},
    {CommandId::priceHistory, runPriceHistory},
    {CommandId::deals, runDeals},
    {CommandId::compare, runCompare},
    {CommandId::storefronts, runStorefronts},
});

CommandHandler findHandler(CommandId id) {
  const auto row = std::find_if(kHandlers.begin(), kHandlers.end(),
                                [id](const HandlerRow& r) { return r.id == id; });
  return row == kHandlers.end() ? nullptr : row->run;
}

Task<CommandResult> attempt(const CommandRow* command, CommandCall call) {
  const CommandHandler handler = findHandler(command->id);
  if (handler == nullptr) throw unknownCommand(command->word);
  return handler(std::move(call));
}

/// How long to wait before retry number `retry` (from 0).
std::chrono::seconds waitBefore(int retry) { return retry == 0 ? 20s : 45s; }

std::string shownText(const std::string& text, const CommandInvocation& invocation,
                      const TextStyle& style) {
  const bool isFolded =
      invocation.form == OutputForm::text && !kPrintsCommands.contains(invocation.command->id);
  return isFolded ? folded(text, style.width, columnCount) : text;
}

std::string waitingLine(int retry, int retries) {
  return fmt::format("quillet: Apple is rate limiting; waiting {}s, then retrying ({} of {})\n",
                     waitBefore(retry).count(), retry + 2, retries + 1);
}

}  // namespace

Task<ExitStatus> runCommand(CommandInvocation invocation, CommandServices services,
                            Streams streams) {
  const int retries = invocation.options.retries;
  const CommandCall call{invocation.options, invocation.form, streams.style, services};
  for (int retry = 0;; ++retry) {
    std::exception_ptr failure;
    try {
      const CommandResult result = co_await attempt(invocation.command, call);
      if (!result.notice.empty()) {
        streams.err.write(renderRemark(result.notice, streams.errWidth));
      }
      streams.out.write(shownText(result.text, invocation, streams.style) + '\n');
      if (!result.remark.empty() && streams.errWidth > 0) {
        streams.err.write(renderRemark(result.remark, streams.errWidth));
      }
      co_return result.status;
    } catch (...) {
      failure = std::current_exception();
    }
    if (!isWaitedOut(failure) || retry == retries) {
      co_return reportError(toCLIError(failure), invocation.form, streams);
    }
    streams.err.write(waitingLine(retry, retries));
    services.progress.countDown("Trying again", services.clock.monotonic() + waitBefore(retry));
    co_await services.clock.sleepFor(waitBefore(retry), StopToken{});
  }
}

}  // namespace quillet
