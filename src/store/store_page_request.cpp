// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/store_page_request.h"

#include "base/urls.h"
#include "store/browser_identity.h"
#include "store/records/itunes_error.h"

namespace quillet {

namespace {

constexpr std::chrono::seconds kTimeout{25};

}  // namespace

HttpRequest storePageRequest(std::string_view address, std::string_view path) {
  HttpRequest request;
  request.url = buildUrl(address, path, {});
  if (!canBeAsked(request.url)) throw ITunesError::invalidURL();
  request.headers.emplace_back(kUserAgentHeader, kBrowserUserAgent);
  request.idleTimeout = kTimeout;
  return request;
}

}  // namespace quillet
