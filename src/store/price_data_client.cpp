// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/price_data_client.h"

#include <sys/mman.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <utility>

#include "base/errors.h"
#include "base/text.h"
#include "net/inflater.h"
#include "net/worker.h"
#include "store/records/price_data_error.h"

namespace quillet {

namespace {

constexpr std::string_view kPath = "/file/quillbase-prices/v1/";
constexpr std::string_view kManifestName = "manifest.json";
constexpr std::int64_t kNewestSchema = 1;
constexpr std::size_t kLargestFile = std::size_t{256} * 1024 * 1024;
constexpr std::chrono::seconds kTimeout{25};

constexpr std::string_view kGzipStart = "\x1f\x8b";
constexpr int kMostLayers = 2;
/// Gzip does not pack better; a larger size in a trailer is a lie.
constexpr std::size_t kBestRatio = 1032;
constexpr std::size_t kTrailerSize = 4;
/// The parser reads so far beyond the end.
constexpr std::size_t kRoomBehind = 64;

/// The inflated size that the trailer tells, modulo 2^32, in case it can be true.
std::size_t likelySize(std::string_view packed, std::size_t limit) {
  if (packed.size() < kTrailerSize) return 0;
  std::size_t size = 0;
  for (std::size_t i = 1; i <= kTrailerSize; ++i) {
    size = size * 256 + static_cast<unsigned char>(packed[packed.size() - i]);
  }
  return std::min({size, limit, packed.size() * kBestRatio});
}

/// Half of what reading a large file costs the system is handing out its pages one by one. A mere
/// hint: nothing depends on whether it is taken.
void useLargePages([[maybe_unused]] std::string& empty) {
#ifdef MADV_HUGEPAGE
  constexpr std::uintptr_t kLargePage = std::uintptr_t{2} * 1024 * 1024;
  const auto start = reinterpret_cast<std::uintptr_t>(empty.data());
  const std::uintptr_t first = (start + kLargePage - 1) / kLargePage * kLargePage;
  const std::uintptr_t end = (start + empty.capacity()) / kLargePage * kLargePage;
  if (first < end) madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE);
#endif
}

std::string inflated(std::string_view packed, std::size_t limit) {
  std::string text;
  text.reserve(likelySize(packed, limit) + kRoomBehind);
  useLargePages(text);
  Inflater inflater;
  inflater.append(packed, limit, text);
  if (text.size() > limit) throw DecodingError("it is too large");
  if (!inflater.isComplete()) throw DecodingError("it is cut off");
  return text;
}

PriceSeedReader openFile(std::string packed, const std::string& country) {
  std::string text;
  try {
    text = unpackedPriceFile(std::move(packed), kLargestFile);
  } catch (const DecodingError&) {
    throw PriceDataError::unreadable(country);
  }
  return {std::move(text), country};
}

SeedManifest openManifest(std::string packed) {
  SeedManifest manifest;
  try {
    manifest = decodeSeedManifest(unpackedPriceFile(std::move(packed), kLargestFile));
  } catch (const DecodingError&) {
    throw PriceDataError::unreadable(kManifestName);
  }
  if (manifest.schema > kNewestSchema) throw PriceDataError::newer();
  return manifest;
}

HttpRequest requestFor(std::string url, CachePolicy policy) {
  HttpRequest request;
  request.url = std::move(url);
  request.cachePolicy = policy;
  request.idleTimeout = kTimeout;
  request.inflation = Inflation::none;
  request.bodyLimit = kLargestFile;
  return request;
}

}  // namespace

std::string unpackedPriceFile(std::string packed, std::size_t limit) {
  for (int layer = 0; layer < kMostLayers && packed.starts_with(kGzipStart); ++layer) {
    packed = inflated(packed, limit);
  }
  return packed;
}

PriceDataClient::PriceDataClient(HttpClient& http, const std::string& address)
    : http_(http), base_(address + std::string(kPath)) {}

Task<HttpResponse> PriceDataClient::fetch(std::string name, CachePolicy policy, StopToken stop) {
  const std::string url = base_ + name;
  HttpResponse response = co_await http_.get(requestFor(url, policy), std::move(stop));
  if (response.status < 200 || response.status > 299) {
    throw PriceDataError::httpStatus(response.status, url);
  }
  co_return response;
}

Task<SeedManifest> PriceDataClient::manifest(StopToken stop) {
  for (auto policy = CachePolicy::revalidate;; policy = CachePolicy::renew) {
    HttpResponse response = co_await fetch(std::string(kManifestName), policy, stop);
    try {
      co_return openManifest(std::move(response.body));
    } catch (const PriceDataError&) {
      if (response.source != BodySource::cache) throw;
    }
  }
}

Task<PriceSeedReader> PriceDataClient::storefront(std::string country, StopToken stop) {
  const std::string code = lowerAscii(country);
  for (auto policy = CachePolicy::revalidate;; policy = CachePolicy::renew) {
    BodySource source = BodySource::network;
    try {
      HttpResponse response = co_await fetch("changes-" + code + ".json.gz", policy, stop);
      source = response.source;
      auto open = [packed = std::move(response.body), code]() mutable {
        return openFile(std::move(packed), code);
      };
      Task<PriceSeedReader> opening = onWorker(std::move(open), stop);
      co_return co_await opening;
    } catch (const NetworkError& error) {
      if (error.kind() == NetworkError::Kind::tooLarge) throw PriceDataError::unreadable(code);
      throw;
    } catch (const PriceDataError&) {
      if (source != BodySource::cache) throw;
    }
  }
}

}  // namespace quillet
