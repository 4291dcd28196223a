// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

#include "net/completion.h"
#include "queries/either_stop.h"
#include "queries/query_call.h"

namespace quillet {

/// How all windows ask Apple's services; nothing above names their clients' lives. It is there
/// before the services are: what is asked meanwhile waits. What windows ask is interactive.
///
/// An object of the event-loop thread, which outlives all views.
class StoreGateway : public QObject {
  Q_OBJECT

 public:
  /// Called once, when the services are there; they outlive all questions, which end with `stop`.
  void use(QueryServices services, StopToken stop);

  [[nodiscard]] bool isOpen() const { return services_.has_value(); }

  /// Runs `ask(QueryServices, QueryCall)`, a function that returns a task, once the services are
  /// there. Throws what it throws; NetworkError `cancelled` with either stop.
  template <typename Ask>
  auto ask(Ask ask, StopToken stop, std::function<void(QueryProgress)> progress = {})
      -> std::invoke_result_t<Ask&, QueryServices, QueryCall>;

  /// How long the next question of the search service waits for its turn; absent while none waits.
  [[nodiscard]] std::optional<std::chrono::milliseconds> budgetWait() const;

  /// After the stop: returns when the last question has ended.
  Task<> ended();

 Q_SIGNALS:
  /// The network is there again after it was away.
  void networkReturned();

 private:
  /// Counts a question while it is under way.
  class Asking {
   public:
    explicit Asking(StoreGateway& gateway) : gateway_(gateway) { ++gateway_.asking_; }
    ~Asking() { gateway_.leave(); }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

   private:
    StoreGateway& gateway_;
  };

  Task<> opened();
  void leave();
  static void throwIfStopped(const StopToken& stop);

  std::optional<QueryServices> services_;
  StopToken stop_;
  std::vector<Completion> waiting_;  ///< of whoever asked before the services were there
  int asking_ = 0;
  std::vector<Completion> leaving_;  ///< of whoever waits for the last question
};

template <typename Ask>
auto StoreGateway::ask(Ask ask, StopToken stop, std::function<void(QueryProgress)> progress)
    -> std::invoke_result_t<Ask&, QueryServices, QueryCall> {
  if (!isOpen()) co_await opened();
  const Asking asking(*this);
  const EitherStop either(stop_, stop);
  throwIfStopped(either.token());
  co_return co_await ask(
      *services_, QueryCall{{RequestClass::interactive, either.token()}, std::move(progress)});
}

}  // namespace quillet
