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

/// Requests the stop itself, unless another one does before.
Task<> stopLater(Clock* clock, StopSource* stop) {
  try {
    co_await clock->sleepFor(kPatience, stop->token());
    stop->requestStop();
  } catch (const NetworkError&) {
    co_return;
  }
}

}  // namespace

Task<CommandResult> runRankHistory(CommandCall call) {
  CommandResult result;
  StopSource stop;
  const Task<> waiting = stopLater(&call.services.clock, &stop);
  try {
    std::string trackId(trimmed(call.options.operands.front()));
    const ITunesApp app = co_await lookUpApp(std::move(trackId), call, stop.token());
    result.text = app.trackName;
  } catch (...) {
    result.notice = stop.token().stopRequested()
                        ? "the app's name could not be read: the store did not answer in time."
                        : unreadNotice("the app's name", std::current_exception());
  }
  stop.requestStop();
  co_await waiting;
  co_return result;
}

}  // namespace quillet
