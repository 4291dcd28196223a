// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstddef>
#include <string>

#include "base/text_buffer.h"
#include "net/http_client.h"
#include "store/records/price_seed_reader.h"
#include "store/records/seed_manifest.h"

namespace quillet {

// What is taken of a storefront's file, in bytes: as it travels, and unpacked.
inline constexpr std::size_t kLargestPriceFile = std::size_t{64} * 1024 * 1024;
inline constexpr std::size_t kLargestPriceText = std::size_t{256} * 1024 * 1024;

/// Reads the published price data: static files, which have no request budget and no retries. A
/// file that has not changed since it was last read is not transferred again.
///
/// An object of the event-loop thread that lives as long as its face. Both operations throw
/// PriceSeedError, and NetworkError for a transfer that failed or was stopped.
class PriceSeedClient {
 public:
  /// `address`: scheme, host and port of the server, or a folder's file address.
  PriceSeedClient(HttpClient& http, const std::string& address);

  /// `limit`: how long it may take in all.
  Task<SeedManifest> manifest(StopToken stop,
                              std::chrono::seconds limit = std::chrono::minutes(10));

  /// The storefront's file, ready to be read; opened on a worker. `country`: two letters. A kept
  /// file that cannot be read is asked for anew: the server would confirm it for as long as its own
  /// stays the same.
  Task<PriceSeedReader> storefront(std::string country, StopToken stop);

 private:
  Task<HttpResponse> fetch(std::string name, CachePolicy policy, std::chrono::seconds limit,
                           StopToken stop);

  HttpClient& http_;
  std::string base_;
};

/// The JSON of a file as it arrived: gzip is undone where it is there, for the server may have done
/// so on the way, or packed the packed file once more. Throws DecodingError for damaged data and
/// for text larger than `limit` bytes.
[[nodiscard]] TextBuffer unpackedPriceFile(std::string packed, std::size_t limit);

}  // namespace quillet
