// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/logging_http_client.h"

#include <fmt/format.h>

#include <utility>

#include "base/enum_table.h"
#include "base/errors.h"
#include "base/text.h"

namespace quillet {
namespace {

using std::chrono::milliseconds;
using Kind = NetworkError::Kind;

constexpr EnumTable<BodySource, 3> kSources{{
    {BodySource::network, "network"},
    {BodySource::cache, "cache"},
    {BodySource::file, "file"},
}};
static_assert(isComplete(kSources, BodySource::file));

constexpr EnumTable<Kind, 5> kFailures{{
    {Kind::cancelled, "cancelled"},
    {Kind::notConnected, "offline"},
    {Kind::cannotReach, "unreachable"},
    {Kind::tooLarge, "too-large"},
    {Kind::failed, "failed"},
}};
static_assert(isComplete(kFailures, Kind::failed));

std::string line(std::string_view status, milliseconds time, std::string_view bytes,
                 std::string_view source, std::string_view address) {
  return fmt::format("net {:>3} {:>6} ms {:>9} B {:<11} {}", status, time.count(), bytes, source,
                     printable(address));
}

std::string answerLine(const HttpRequest& request, const HttpResponse& response,
                       milliseconds time) {
  const std::string arrow = response.redirectedTo.empty() ? "" : " -> ";
  return line(std::to_string(response.status), time, std::to_string(response.received),
              textOf(kSources, response.source), request.url + arrow + response.redirectedTo);
}

std::string failureLine(const HttpRequest& request, std::string_view kind, const char* reason,
                        milliseconds time) {
  return line("-", time, "-", kind, request.url + ' ' + reason);
}

}  // namespace

Task<HttpResponse> LoggingHttpClient::get(HttpRequest request, StopToken stop) {
  if (!sink_) return under_.get(std::move(request), std::move(stop));
  return getAndTell(std::move(request), std::move(stop));
}

Task<HttpResponse> LoggingHttpClient::getAndTell(HttpRequest request, StopToken stop) {
  const Clock::Monotonic start = clock_.monotonic();
  const auto elapsed = [&] { return clock_.monotonic() - start; };
  try {
    HttpResponse response = co_await under_.get(request, std::move(stop));
    sink_(answerLine(request, response, elapsed()));
    co_return response;
  } catch (const NetworkError& error) {
    sink_(failureLine(request, textOf(kFailures, error.kind()), error.what(), elapsed()));
    throw;
  }
}

}  // namespace quillet
