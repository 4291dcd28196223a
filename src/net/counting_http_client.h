// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstddef>
#include <deque>

#include "net/clock.h"
#include "net/http_client.h"

namespace quillet {

/// Passes requests on and counts them.
class CountingHttpClient final : public HttpClient {
 public:
  /// Both outlive the client.
  CountingHttpClient(HttpClient& under, const Clock& clock) : under_(under), clock_(clock) {}

  Task<HttpResponse> get(HttpRequest request, StopToken stop) override {
    forgetOld();
    times_.push_back(clock_.monotonic());
    return under_.get(std::move(request), std::move(stop));
  }

  /// How many were asked for within the last minute.
  [[nodiscard]] std::size_t inLastMinute() {
    forgetOld();
    return times_.size();
  }

 private:
  void forgetOld() {
    const auto oldest = clock_.monotonic() - std::chrono::minutes(1);
    while (!times_.empty() && times_.front() <= oldest) times_.pop_front();
  }

  HttpClient& under_;
  const Clock& clock_;
  std::deque<Clock::Monotonic> times_;
};

}  // namespace quillet
