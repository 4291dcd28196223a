// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/errors.h"
#include "base/text.h"
#include "cli/online/app/app_lookup.h"
#include "cli/online/command_handlers.h"

namespace quillet {

namespace {

// The ranks are there already; a name is not worth a longer wait.
constexpr std::chrono::seconds kPatience{5};

/// What the store said, or why it said nothing.
struct NameOrReason {
  std::optional<std::string> name;
  std::string notice;
};

/// Requests the stop itself, unless another one does before.
Task<> stopLater(Clock* clock, StopSource* stop) {
  try {
    co_await clock->sleepFor(kPatience, stop->token());
    stop->requestStop();
  } catch (const NetworkError&) {
    co_return;
  }
}

Task<NameOrReason> askName(CommandCall call) {
  NameOrReason answer;
  StopSource stop;
  const Task<> waiting = stopLater(&call.services.clock, &stop);
  try {
    std::string trackId(trimmed(call.options.operands.front()));
    const ITunesApp app = co_await lookUpApp(std::move(trackId), call, stop.token());
    answer.name = app.trackName;
  } catch (...) {
    answer.notice = stop.token().stopRequested()
                        ? "the app's name could not be read: the store did not answer in time."
                        : unreadNotice("the app's name", std::current_exception());
  }
  stop.requestStop();
  co_await waiting;
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
