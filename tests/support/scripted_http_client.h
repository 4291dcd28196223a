// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <deque>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "base/errors.h"
#include "net/completion.h"
#include "net/http_client.h"

namespace quillet {

/// A network that says what a test told it to. Answers are found by the exact address and given in
/// the order in which they were added, each once; like a real one it answers from the event loop.
/// A request without an answer is a failure of the test, and so is an answer that nobody asked for.
class ScriptedHttpClient final : public HttpClient {
 public:
  ScriptedHttpClient() = default;
  ~ScriptedHttpClient() override;
  ScriptedHttpClient(const ScriptedHttpClient&) = delete;
  ScriptedHttpClient& operator=(const ScriptedHttpClient&) = delete;

  void answer(const std::string& url, int status, std::string body);
  void answer(const std::string& url, HttpResponse response);
  void fail(const std::string& url, NetworkError error);

  /// Keeps back what is asked of `url` from now on, until release(url). The answer may be added at
  /// any time before the release. A kept-back request that is cancelled takes its answer with it.
  void hold(const std::string& url);
  void release(const std::string& url);

  Task<HttpResponse> get(HttpRequest request, StopToken stop) override;

  /// Every request in order, unexpected ones included.
  [[nodiscard]] const std::vector<HttpRequest>& requests() const { return requests_; }

 private:
  using Answer = std::variant<HttpResponse, NetworkError>;

  Completion gateFor(const std::string& url);
  HttpResponse takeAnswer(const std::string& url);

  std::map<std::string, std::deque<Answer>> answers_;
  std::map<std::string, std::vector<Completion>> held_;
  std::vector<HttpRequest> requests_;
};

}  // namespace quillet
