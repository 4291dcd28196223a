// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "base/log_sink.h"
#include "net/clock.h"
#include "net/http_client.h"

namespace quillet {

/// Passes requests on and tells of each when it has ended, in one line of fields in this order:
///
///   net 200    143 ms     12345 B network     https://store.example/lookup?id=7
///   net   -   5003 ms         - B unreachable https://store.example/lookup?id=8 Connection refused
///
/// the status, the time from the asking to the whole answer, the bytes of the body as they were
/// sent (0 where the server confirmed a kept one), where the body was read (network, cache, file),
/// and the address, with "-> " and another one where redirects led elsewhere. Without an answer,
/// "-" stands for what there is none of, the kind of failure for the source, and the reason last.
/// Headers are never told.
class LoggingHttpClient final : public HttpClient {
 public:
  /// All of it outlives the client. Where `sink` is empty, requests are passed on and nothing else.
  LoggingHttpClient(HttpClient& under, const Clock& clock, LogSink sink)
      : under_(under), clock_(clock), sink_(std::move(sink)) {}

  Task<HttpResponse> get(HttpRequest request, StopToken stop) override;

 private:
  Task<HttpResponse> getAndTell(HttpRequest request, StopToken stop);

  HttpClient& under_;
  const Clock& clock_;
  LogSink sink_;
};

}  // namespace quillet
