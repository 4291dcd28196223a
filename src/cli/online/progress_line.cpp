// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/progress_line.h"

#include <fmt/format.h>

#include "base/columns.h"
#include "base/errors.h"
#include "base/text.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

// What is over within a second needs no words.
constexpr milliseconds kPatience = 1s;
constexpr milliseconds kInterval = 200ms;

constexpr std::string_view kErase = "\r\x1B[K";

/// Rounded up: who has 0 seconds left to wait waits no more.
std::int64_t secondsIn(milliseconds duration) {
  return std::max<std::int64_t>(std::chrono::ceil<std::chrono::seconds>(duration).count(), 1);
}

}  // namespace

void ProgressLine::Guarded::write(std::string_view text) {
  line_.erase();
  under_.write(text);
}

ProgressLine::ProgressLine(Clock& clock, Streams under, std::size_t width, BudgetWait budgetWait)
    : clock_(clock),
      under_(under),
      width_(width),
      budgetWait_(std::move(budgetWait)),
      out_(*this, under.out),
      err_(*this, under.err) {}

void ProgressLine::report(std::string activity) {
  activity_ = std::move(activity);
  end_.reset();
}

void ProgressLine::countDown(std::string activity, Clock::Monotonic end) {
  activity_ = std::move(activity);
  end_ = end;
}

void ProgressLine::announce(std::string_view sentence) {
  if (width_ > 0) err_.write(renderRemark(sentence, width_));
}

Streams ProgressLine::streams() { return {out_, err_, under_.style, under_.errWidth}; }

Task<> ProgressLine::keepShowing(StopToken stop) {
  if (width_ == 0) co_return;
  try {
    co_await clock_.sleepFor(kPatience, stop);
    for (;;) {
      draw();
      co_await clock_.sleepFor(kInterval, stop);
    }
  } catch (const NetworkError&) {
    erase();  // stopped
  }
}

std::string ProgressLine::text() const {
  std::string text = printable(activity_);
  if (end_) {
    text += fmt::format(" in {} s", secondsIn(*end_ - clock_.monotonic()));
  } else if (const auto wait = budgetWait_()) {
    text +=
        fmt::format("{}waiting {} s for Apple's limit", text.empty() ? "" : ", ", secondsIn(*wait));
  }
  // In the last column a terminal may already have gone to the next line.
  return std::string(firstColumns(text, width_ - 1));
}

void ProgressLine::draw() {
  std::string now = text();
  if (now == drawn_) return;
  under_.err.write(std::string(kErase) + now);
  drawn_ = std::move(now);
}

void ProgressLine::erase() {
  if (drawn_.empty()) return;
  under_.err.write(kErase);
  drawn_.clear();
}

Task<ExitStatus> showProgress(ProgressLine* line, Task<ExitStatus> command) {
  StopSource stop;
  const Task<> showing = line->keepShowing(stop.token());
  std::exception_ptr failure;
  ExitStatus status = ExitStatus::failure;
  try {
    status = co_await command;
  } catch (...) {
    failure = std::current_exception();
  }
  stop.requestStop();
  co_await showing;
  if (failure) std::rethrow_exception(failure);
  co_return status;
}

}  // namespace quillet
