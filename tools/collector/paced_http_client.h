// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>

#include "collector/request_ledger.h"
#include "net/http_client.h"

namespace quillet {

/// Lets a request start only when those of all who write into the same ledger leave room for it.
class PacedHttpClient final : public HttpClient {
 public:
  /// The references outlive the client. `say` takes a line for people: that the ledger failed, and
  /// the client goes on with one of its own.
  PacedHttpClient(HttpClient& under, Clock& clock, int requestsPerMinute,
                  std::function<RequestLedger()> openLedger,
                  std::function<void(const std::string& line)> say);

  Task<HttpResponse> get(HttpRequest request, StopToken stop) override;

 private:
  Task<> takePlace(StopToken stop);
  std::chrono::milliseconds tryToTakePlace();
  std::chrono::milliseconds waitForLock();
  void noteAnother();
  void useOwnLedger(const std::string& reason);

  HttpClient& under_;
  Clock& clock_;
  int requestsPerMinute_;
  std::function<void(const std::string&)> say_;
  RequestLedger ledger_;  ///< of its own until the shared one is open
  std::chrono::milliseconds waitedForLock_{0};
};

}  // namespace quillet
