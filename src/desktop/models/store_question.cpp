// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/store_question.h"

#include "base/errors.h"
#include "queries/patient_asking.h"
#include "store/records/itunes_error.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kBudgetLook = 250ms;

}  // namespace

bool isRateLimit(const std::exception_ptr& error) {
  try {
    std::rethrow_exception(error);
  } catch (const ITunesError& failure) {
    return failure.isRateLimit();
  } catch (...) {
    return false;
  }
}

StoreQuestion::StoreQuestion(StoreGateway& store, Clock& clock, QObject* parent)
    : QObject(parent), store_(store), clock_(clock) {
  budget_.setInterval(kBudgetLook);
  connect(&budget_, &QTimer::timeout, this, &StoreQuestion::lookAtBudget);
  connect(&store, &StoreGateway::networkReturned, this, &StoreQuestion::takeNetwork);
}

StoreQuestion::~StoreQuestion() { giveUp(); }

void StoreQuestion::begin() {
  giveUp();
  isUnderWay_ = isUnanswered_ = true;
  setState(Loading{clock_.now()});
  detach(run(this, generation_), "A question to the store");
}

/// Whatever is under way ends, and nobody hears of it.
void StoreQuestion::giveUp() {
  ++generation_;
  isUnderWay_ = false;
  budget_.stop();
  std::exchange(stop_, StopSource()).requestStop();
}

Task<> StoreQuestion::run(QPointer<StoreQuestion> question, int generation) {
  for (std::size_t tries = 0;; ++tries) {
    std::exception_ptr error;
    co_await tryOnce(question, generation, &error);
    if (question.isNull() || question->generation_ != generation || !error) co_return;
    question->budget_.stop();
    if (!isRateLimit(error) || tries == kRateLimitPauses.size()) {
      question->isUnderWay_ = false;
      question->setState(listStateOf(error));
      co_return;
    }
    question->refusal_ = error;
    question->setState(Throttled{question->clock_.now() + kRateLimitPauses.at(tries)});
    const StopToken stop = question->stop_.token();
    co_await question->clock_.sleepFor(kRateLimitPauses.at(tries), stop);
    if (question.isNull() || question->generation_ != generation) co_return;
    question->setState(Loading{question->clock_.now()});
  }
}

Task<> StoreQuestion::tryOnce(QPointer<StoreQuestion> question, int generation,
                              std::exception_ptr* error) {
  Deliver deliver;
  question->budget_.start();
  try {
    deliver = co_await question->store_.ask(question->try_, question->stop_.token());
  } catch (...) {
    *error = std::current_exception();
  }
  if (*error || question.isNull() || question->generation_ != generation) co_return;
  question->budget_.stop();
  question->isUnderWay_ = question->isUnanswered_ = false;
  question->state_ = Ready{};
  deliver();
  if (!question.isNull() && question->generation_ == generation) Q_EMIT question->stateChanged();
}

void StoreQuestion::tryAgain() {
  if (try_) begin();
}

void StoreQuestion::stop() {
  const bool waitedToAsk = std::holds_alternative<Throttled>(state_);
  giveUp();
  setState(waitedToAsk ? listStateOf(refusal_) : Ready{});
}

void StoreQuestion::forget() {
  giveUp();
  try_ = {};
  isUnanswered_ = false;
  setState(Ready{});
}

void StoreQuestion::lookAtBudget() {
  if (const auto wait = store_.budgetWait()) {
    setState(BudgetWait{clock_.now() + *wait});
  } else if (std::holds_alternative<BudgetWait>(state_)) {
    setState(Loading{clock_.now()});
  }
}

void StoreQuestion::takeNetwork() {
  if (std::holds_alternative<Offline>(state_) && !std::exchange(hasReturned_, true)) tryAgain();
}

void StoreQuestion::setState(ListState state) {
  state_ = std::move(state);
  Q_EMIT stateChanged();
}

}  // namespace quillet
