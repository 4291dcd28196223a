// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/rank_history_command.h"

#include <fmt/format.h>

#include "cli/online/app_lookup.h"

namespace quillet {

namespace {

/// What the store said, or why it said nothing.
struct NameOrReason {
  std::optional<std::string> name;
  std::string notice;
};

Task<NameOrReason> askName(CommandCall call) {
  NameOrReason answer;
  try {
    const ITunesApp app = co_await lookUpApp(call.options.operands.front(), call);
    answer.name = app.trackName;
  } catch (...) {
    const CLIError error = toCLIError(std::current_exception());
    answer.notice = fmt::format("the app's name could not be read: {}", error.what());
  }
  co_return answer;
}

}  // namespace

Task<CommandResult> runRankHistory(CommandCall call) {
  const RankHistoryRenderer& render = call.services.rankHistory;
  // What the library lacks is said before anything is asked.
  std::string nameless = render(call.options, call.form, call.style, {});
  NameOrReason answer = co_await askName(call);
  CommandResult result;
  result.notice = std::move(answer.notice);
  result.text =
      answer.name ? render(call.options, call.form, call.style, answer.name) : std::move(nameless);
  co_return result;
}

}  // namespace quillet
