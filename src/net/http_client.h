// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "net/request_class.h"
#include "net/stop_token.h"
#include "net/task.h"

namespace quillet {

/// How a request uses the disk cache.
enum class CachePolicy {
  revalidate,  ///< a kept answer is used only after the server confirmed it
  renew,       ///< a kept answer is not used, and the new one takes its place
  ignore,      ///< neither read nor written
};

/// Whether the client undoes a content encoding on the way.
enum class Inflation { automatic, none };

struct HttpRequest {
  std::string url;  ///< absolute and percent-encoded
  std::vector<std::pair<std::string, std::string>> headers;
  RequestClass requestClass = RequestClass::interactive;  ///< its turn among those to one host
  std::chrono::milliseconds idleTimeout = std::chrono::seconds(20);  ///< without any progress
  std::chrono::milliseconds totalTimeout = std::chrono::minutes(2);  ///< from its sending on
  CachePolicy cachePolicy = CachePolicy::revalidate;
  Inflation inflation = Inflation::automatic;
  /// Bytes, both as they are sent and after inflation.
  std::size_t bodyLimit = std::size_t{64} * 1024 * 1024;
};

/// Where a body was read.
enum class BodySource {
  network,
  cache,  ///< kept from an earlier answer, which the server confirmed
  file,
};

struct HttpResponse {
  int status = 0;
  std::string body;
  BodySource source = BodySource::network;
  std::size_t received = 0;  ///< bytes of the body as they were sent, before inflation
  std::string redirectedTo;  ///< the address that answered; empty where it is the one asked for
};

/// Whether the server gave what it was asked for.
[[nodiscard]] constexpr bool isSuccess(int status) { return status >= 200 && status < 300; }

/// Whether this is an address that get() can ask at all.
[[nodiscard]] bool canBeAsked(const std::string& url);

/// The one door to the network.
class HttpClient {
 public:
  virtual ~HttpClient() = default;

  /// Sends a GET and answers with whatever HTTP answer came, error statuses included. Follows at
  /// most 5 redirects, to the same scheme or from http to https. Throws NetworkError when no whole
  /// answer came.
  virtual Task<HttpResponse> get(HttpRequest request, StopToken stop) = 0;
};

}  // namespace quillet
