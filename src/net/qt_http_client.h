// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QNetworkAccessManager>
#include <filesystem>
#include <map>

#include "net/http_client.h"
#include "net/semaphore.h"

namespace quillet {

/// The network through Qt, proxies of the environment included. A `file` address is answered as a
/// server would: 200 with the file's bytes, 404 for a missing one. Belongs to the event-loop thread
/// and must outlive the requests made of it.
class QtHttpClient final : public HttpClient {
 public:
  /// Answers are kept in `cacheDirectory`, which is made when missing; without one (empty), or
  /// where it cannot be written to, nothing is kept.
  explicit QtHttpClient(const std::filesystem::path& cacheDirectory);

  Task<HttpResponse> get(HttpRequest request, StopToken stop) override;

 private:
  Task<HttpResponse> transferOnce(HttpRequest request, StopToken stop);

  QNetworkAccessManager manager_;
  std::map<QString, Semaphore> semaphores_;  ///< by host
};

}  // namespace quillet
