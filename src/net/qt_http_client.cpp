// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/qt_http_client.h"

#include <QNetworkRequest>
#include <QUrl>
#include <utility>

#include "net/network_errors.h"
#include "net/revalidating_cache.h"
#include "net/transfer.h"

namespace quillet {
namespace {

constexpr int kMaximumRedirects = 5;
constexpr int kNotModified = 304;

/// The connections that Qt opens to one host. A further request would wait inside Qt while its idle
/// time-out runs; here it waits before it starts.
constexpr int kRequestsAtOnce = 6;

bool isUsable(const QUrl& url) {
  if (!url.isValid()) return false;
  if (url.scheme() == QLatin1String("file")) return url.isLocalFile();
  const bool isWeb =
      url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
  return isWeb && !url.host().isEmpty();
}

QUrl checkedUrl(const std::string& text) {
  QUrl url = QUrl::fromEncoded(QByteArray::fromStdString(text));
  if (!isUsable(url)) {
    throw NetworkError(NetworkError::Kind::failed, "\"" + text + "\" is not a usable address");
  }
  return url;
}

void setCachePolicy(QNetworkRequest& request, CachePolicy policy) {
  const bool reads = policy == CachePolicy::revalidate;
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                       reads ? QNetworkRequest::PreferNetwork : QNetworkRequest::AlwaysNetwork);
  request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, policy != CachePolicy::ignore);
}

void setRedirects(QNetworkRequest& request) {
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                       QNetworkRequest::NoLessSafeRedirectPolicy);
  request.setMaximumRedirectsAllowed(kMaximumRedirects);
}

/// No answer leaves anything behind that tells the next server who asks.
void setNoCookies(QNetworkRequest& request) {
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
}

QNetworkRequest qtRequest(const HttpRequest& request) {
  QNetworkRequest result(checkedUrl(request.url));
  result.setTransferTimeout(static_cast<int>(request.idleTimeout.count()));
  setCachePolicy(result, request.cachePolicy);
  setRedirects(result);
  setNoCookies(result);
  // Set by hand, so that Qt leaves the body alone: it keeps nothing that it inflated in the cache,
  // hands out kept bodies as they were sent, and passes off a cut gzip body as a whole one.
  result.setRawHeader("Accept-Encoding", "gzip");
  for (const auto& [name, value] : request.headers) {
    result.setRawHeader(QByteArray::fromStdString(name), QByteArray::fromStdString(value));
  }
  return result;
}

}  // namespace

bool canBeAsked(const std::string& url) {
  return isUsable(QUrl::fromEncoded(QByteArray::fromStdString(url)));
}

QtHttpClient::QtHttpClient(const std::filesystem::path& cacheDirectory) {
  if (!cacheDirectory.empty()) manager_.setCache(new RevalidatingCache(cacheDirectory, &manager_));
}

Task<HttpResponse> QtHttpClient::get(HttpRequest request, StopToken stop) {
  HttpResponse response = co_await transferOnce(request, stop);
  // Another process emptied the cache between our question and the server's "not modified".
  if (response.status == kNotModified && request.cachePolicy == CachePolicy::revalidate) {
    request.cachePolicy = CachePolicy::ignore;
    response = co_await transferOnce(std::move(request), std::move(stop));
  }
  co_return response;
}

Task<HttpResponse> QtHttpClient::transferOnce(HttpRequest request, StopToken stop) {
  const QNetworkRequest question = qtRequest(request);
  Semaphore& semaphore =
      semaphores_.try_emplace(question.url().host(), kRequestsAtOnce).first->second;
  const Semaphore::Permit permit = co_await semaphore.acquire(stop, request.requestClass);
  if (stop.stopRequested()) throw cancelledError();
  Transfer transfer(manager_.get(question), request);
  const StopCallback onStop(stop, [&transfer] { transfer.cancel(); });
  co_await transfer.finished();
  co_return transfer.takeResponse();
}

}  // namespace quillet
