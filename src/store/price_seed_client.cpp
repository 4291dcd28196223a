// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/price_seed_client.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <utility>

#include "base/errors.h"
#include "base/text.h"
#include "net/inflate_whole.h"
#include "net/worker.h"
#include "store/records/price_seed_error.h"

namespace quillet {

namespace {

constexpr std::string_view kPath = "/file/quillbase-prices/v1/";
constexpr std::string_view kManifestName = "manifest.json";
constexpr std::int64_t kNewestSchema = 1;
/// A list of some dozen names; its parser takes many times as much.
constexpr std::size_t kLargestManifest = std::size_t{1024} * 1024;
constexpr std::chrono::seconds kTimeout{25};
constexpr std::chrono::minutes kTotalTimeout{10};

PriceSeedReader openFile(std::string packed, const std::string& country) {
  TextBuffer text;
  try {
    text = unpackedPriceFile(std::move(packed), kLargestPriceText);
  } catch (const DecodingError&) {
    throw PriceSeedError::unreadable(country);
  }
  return {std::move(text), country};
}

SeedManifest openManifest(std::string packed) {
  SeedManifest manifest;
  try {
    manifest = decodeSeedManifest(
        std::string(unpackedPriceFile(std::move(packed), kLargestManifest).view()));
  } catch (const DecodingError&) {
    throw PriceSeedError::unreadable(kManifestName);
  }
  if (manifest.schema > kNewestSchema) throw PriceSeedError::newer();
  return manifest;
}

HttpRequest requestFor(std::string url, CachePolicy policy, std::chrono::seconds limit) {
  HttpRequest request;
  request.url = std::move(url);
  request.cachePolicy = policy;
  request.idleTimeout = std::min(kTimeout, limit);
  request.totalTimeout = limit;
  request.inflation = Inflation::none;
  request.bodyLimit = kLargestPriceFile;
  return request;
}

}  // namespace

TextBuffer unpackedPriceFile(std::string packed, std::size_t limit) {
  if (packed.size() > limit) throw DecodingError("it is too large");
  if (!packed.starts_with(kGzipStart)) return TextBuffer::of(packed);
  TextBuffer text = inflateWhole(packed, limit);
  packed = {};
  if (!text.view().starts_with(kGzipStart)) return text;
  if (text.view().size() > kLargestPriceFile) throw DecodingError("it is too large");
  return inflateWhole(text.view(), limit);
}

PriceSeedClient::PriceSeedClient(HttpClient& http, const std::string& address)
    : http_(http), base_(address + std::string(kPath)) {}

Task<HttpResponse> PriceSeedClient::fetch(std::string name, CachePolicy policy,
                                          std::chrono::seconds limit, StopToken stop) {
  const std::string url = base_ + name;
  HttpResponse response = co_await http_.get(requestFor(url, policy, limit), std::move(stop));
  if (!isSuccess(response.status)) throw PriceSeedError::httpStatus(response.status, url);
  co_return response;
}

Task<SeedManifest> PriceSeedClient::manifest(StopToken stop, std::chrono::seconds limit) {
  for (auto policy = CachePolicy::revalidate;; policy = CachePolicy::renew) {
    HttpResponse response = co_await fetch(std::string(kManifestName), policy, limit, stop);
    try {
      co_return openManifest(std::move(response.body));
    } catch (const PriceSeedError&) {
      if (response.source != BodySource::cache) throw;
    }
  }
}

Task<PriceSeedReader> PriceSeedClient::storefront(std::string country, StopToken stop) {
  const std::string code = lowerAscii(country);
  for (auto policy = CachePolicy::revalidate;; policy = CachePolicy::renew) {
    BodySource source = BodySource::network;
    try {
      HttpResponse response =
          co_await fetch("changes-" + code + ".json.gz", policy, kTotalTimeout, stop);
      source = response.source;
      auto open = [packed = std::move(response.body), code]() mutable {
        return openFile(std::move(packed), code);
      };
      Task<PriceSeedReader> opening = onWorker(std::move(open), stop);
      co_return co_await opening;
    } catch (const NetworkError& error) {
      if (error.kind() == NetworkError::Kind::tooLarge) throw PriceSeedError::unreadable(code);
      throw;
    } catch (const PriceSeedError&) {
      if (source != BodySource::cache) throw;
    }
  }
}

}  // namespace quillet
