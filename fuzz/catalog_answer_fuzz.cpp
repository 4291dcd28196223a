// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/errors.h"
#include "fuzzing.h"
#include "store/records/catalog_bundles_json.h"
#include "store/records/catalog_editorial_json.h"
#include "store/records/catalog_enrichment_json.h"
#include "store/records/catalog_lists_json.h"
#include "store/records/catalog_purchases_json.h"
#include "store/records/catalog_reviews_json.h"

using namespace quillet;

namespace {

/// An answer is decoded, or refused in the documented way.
template <typename Decoder>
void tryDecoding(Decoder decode) {
  try {
    (void)decode();
  } catch (const DecodingError& error) {
    require(isValidUtf8(error.what()), "a refusal is valid UTF-8");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string body(textOf(data, size));
  tryDecoding([&] { return decodeEnrichment(body, Platform::mac); });
  tryDecoding([&] { return decodeEnrichment(body, Platform::iphone); });
  tryDecoding([&] { return decodeReviewsPage(body); });
  tryDecoding([&] { return decodeMacCompatibilityFlags(body); });
  tryDecoding([&] { return decodePlatformFacts(body); });
  tryDecoding([&] { return decodePurchases(body); });
  tryDecoding([&] { return decodeBundles(body); });
  tryDecoding([&] { return decodeStories(body); });
  return 0;
}
