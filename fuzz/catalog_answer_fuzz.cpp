// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "fuzzing.h"
#include "store/records/catalog_bundles_json.h"
#include "store/records/catalog_editorial_json.h"
#include "store/records/catalog_enrichment_json.h"
#include "store/records/catalog_lists_json.h"
#include "store/records/catalog_purchases_json.h"
#include "store/records/catalog_reviews_json.h"

using namespace quillet;

void quillet::tryInput(std::string_view input) {
  const std::string body(input);
  readOrRefuse([&] { (void)decodeEnrichment(body, Platform::mac); });
  readOrRefuse([&] { (void)decodeEnrichment(body, Platform::iphone); });
  readOrRefuse([&] { (void)decodeReviewsPage(body); });
  readOrRefuse([&] { (void)decodeMacCompatibilityFlags(body); });
  readOrRefuse([&] { (void)decodePlatformFacts(body); });
  readOrRefuse([&] { (void)decodePurchases(body); });
  readOrRefuse([&] { (void)decodeBundles(body); });
  readOrRefuse([&] { (void)decodeStories(body); });
}
