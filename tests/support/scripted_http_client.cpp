// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "support/scripted_http_client.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

#include "net/network_errors.h"

namespace quillet {

ScriptedHttpClient::~ScriptedHttpClient() {
  for (const auto& [url, answers] : answers_) {
    if (!answers.empty()) ADD_FAILURE() << answers.size() << " unused answer(s) for " << url;
  }
}

void ScriptedHttpClient::answer(const std::string& url, int status, std::string body) {
  answer(url, HttpResponse{status, std::move(body)});
}

void ScriptedHttpClient::answer(const std::string& url, HttpResponse response) {
  answers_[url].emplace_back(std::move(response));
}

void ScriptedHttpClient::fail(const std::string& url, NetworkError error) {
  answers_[url].emplace_back(std::move(error));
}

void ScriptedHttpClient::hold(const std::string& url) { held_.try_emplace(url); }

void ScriptedHttpClient::release(const std::string& url) {
  const auto gates = held_.extract(url);
  if (gates.empty()) throw std::logic_error("Nothing is held for " + url);
  for (const Completion& gate : gates.mapped()) gate.set();
}

Task<HttpResponse> ScriptedHttpClient::get(HttpRequest request, StopToken stop) {
  requests_.push_back(request);
  const Completion gate = gateFor(request.url);
  const StopCallback onStop(stop, [gate] { gate.set(); });
  co_await gate;
  if (stop.stopRequested()) {
    if (auto& answers = answers_[request.url]; !answers.empty()) answers.pop_front();
    throw cancelledError();
  }
  co_return takeAnswer(request.url);
}

/// Open already, unless the address is held.
Completion ScriptedHttpClient::gateFor(const std::string& url) {
  Completion gate;
  if (const auto held = held_.find(url); held != held_.end()) {
    held->second.push_back(gate);
  } else {
    gate.set();
  }
  return gate;
}

HttpResponse ScriptedHttpClient::takeAnswer(const std::string& url) {
  auto& answers = answers_[url];
  if (answers.empty()) {
    ADD_FAILURE() << "Unexpected request: " << url;
    throw std::logic_error("Unexpected request: " + url);
  }
  const Answer answer = std::move(answers.front());
  answers.pop_front();
  if (const auto* error = std::get_if<NetworkError>(&answer)) throw *error;
  return std::get<HttpResponse>(answer);
}

}  // namespace quillet
