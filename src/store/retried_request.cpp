// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/retried_request.h"

#include <utility>

#include "store/records/itunes_error.h"

namespace quillet {

Task<std::string> bodyWithRetries(std::function<Task<HttpResponse>()> send, RetryRules rules,
                                  Clock* clock, StopToken stop) {
  for (int attempt = 1;; ++attempt) {
    const bool isLast = attempt >= rules.tries;
    try {
      HttpResponse response = co_await send();
      if (isSuccess(response.status)) co_return std::move(response.body);
      if (isLast || !rules.canHelpAfterStatus(response.status)) {
        throw ITunesError::httpStatus(response.status, response.body);
      }
    } catch (const NetworkError& error) {
      if (isLast || !rules.canHelpAfterFailure(error.kind())) throw;
    }
    co_await clock->sleepFor(rules.waitAfter(attempt), stop);
  }
}

}  // namespace quillet
