// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <exception>
#include <functional>
#include <utility>

#include "desktop/models/list_state.h"
#include "desktop/services/store_gateway.h"
#include "net/clock.h"

namespace quillet {

/// Whether the store wants fewer requests, and nothing else is wrong.
[[nodiscard]] bool isRateLimit(const std::exception_ptr& error);

/// One question at a time that a view asks the store, and how it stands. Where the store wants
/// fewer requests it is asked again after 20 seconds and after 45 more; where there is no network,
/// once when it returns. A later question gives up the earlier one, whose answer nobody hears; so
/// does the end of this.
class StoreQuestion : public QObject {
  Q_OBJECT

 public:
  /// Both outlive it.
  StoreQuestion(StoreGateway& store, Clock& clock, QObject* parent = nullptr);
  ~StoreQuestion() override;

  /// `ask(QueryServices, QueryCall)` returns a task, and is called again for each try; `take` gets
  /// its answer, unless another question came before.
  template <typename Ask, typename Take>
  void ask(Ask ask, Take take);

  /// Asks the last question again; nothing where there was none.
  void tryAgain();
  /// Waits no longer, for an answer or for the next try. Where it waited for the next try, it says
  /// why it failed.
  void stop();
  /// As if nothing had been asked.
  void forget();

  /// Ready where nothing was asked, or the answer came.
  [[nodiscard]] const ListState& state() const { return state_; }
  [[nodiscard]] bool isUnderWay() const { return isUnderWay_; }
  /// Whether something was asked to which there is no answer: it is to come, or failed, or nobody
  /// waits for it any more.
  [[nodiscard]] bool isUnanswered() const { return isUnanswered_; }

 Q_SIGNALS:
  void stateChanged();

 private:
  using Deliver = std::function<void()>;
  using Try = std::function<Task<Deliver>(QueryServices, QueryCall)>;

  template <typename Ask, typename Take>
  static Task<Deliver> answer(Ask ask, Take take, QueryServices services, QueryCall call);

  static Task<> run(QPointer<StoreQuestion> question, int generation);
  static Task<> tryOnce(QPointer<StoreQuestion> question, int generation,
                        std::exception_ptr* error);
  void begin();
  void giveUp();
  void lookAtBudget();
  void takeNetwork();
  void setState(ListState state);

  StoreGateway& store_;
  Clock& clock_;
  Try try_;
  StopSource stop_;
  int generation_ = 0;  ///< of the question whose answer counts
  bool isUnderWay_ = false;
  bool isUnanswered_ = false;
  bool hasReturned_ = false;    ///< whether it was asked again for a network that returned
  std::exception_ptr refusal_;  ///< why it waits for the next try, or did last
  ListState state_ = Ready{};
  QTimer budget_;  ///< looks whether the question waits for its turn
};

template <typename Ask, typename Take>
void StoreQuestion::ask(Ask ask, Take take) {
  try_ = [ask = std::move(ask), take = std::move(take)](QueryServices services, QueryCall call) {
    return answer(ask, take, services, std::move(call));
  };
  hasReturned_ = false;
  begin();
}

template <typename Ask, typename Take>
Task<StoreQuestion::Deliver> StoreQuestion::answer(Ask ask, Take take, QueryServices services,
                                                   QueryCall call) {
  auto answer = co_await ask(services, std::move(call));
  // A function must be copyable, and answers are large.
  auto kept = std::make_shared<decltype(answer)>(std::move(answer));
  co_return [take = std::move(take), kept]() mutable { take(std::move(*kept)); };
}

}  // namespace quillet
