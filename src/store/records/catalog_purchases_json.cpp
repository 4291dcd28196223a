// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/catalog_purchases_json.h"

namespace quillet {

namespace {

InAppPurchase readPurchase(const CatalogBlock& attributes) {
  const CatalogBlock offer = offerIn(attributes);
  InAppPurchase purchase;
  purchase.name = attributes.text("name");
  purchase.description = attributes.block("description").get<std::string>("standard");
  if (!purchase.description) purchase.description = attributes.get<std::string>("description");
  purchase.isFamilyShareable = attributes.get<bool>("isFamilyShareable");
  purchase.offerName = attributes.get<std::string>("offerName");
  purchase.price = offer.get<double>("price");
  purchase.priceFormatted = offer.get<std::string>("priceFormatted");
  purchase.currency = offer.get<std::string>("currencyCode");
  purchase.recurringSubscriptionPeriod = offer.get<std::string>("recurringSubscriptionPeriod");
  // What is billed again and again is a subscription, even where the flag is missing.
  purchase.isSubscription = attributes.get<bool>("isSubscription")
                                .value_or(purchase.recurringSubscriptionPeriod.has_value());
  return purchase;
}

}  // namespace

std::map<std::int64_t, std::vector<InAppPurchase>> decodePurchases(const std::string& body) {
  const CatalogAnswer answer(body);
  std::map<std::int64_t, std::vector<InAppPurchase>> purchases;
  for (const CatalogBlock& app : answer.resources()) {
    if (const auto id = storeIdOf(app)) {
      purchases[*id] = readPurchases(relatedResources(app, "top-in-app-purchasables"));
    }
  }
  return purchases;
}

std::vector<InAppPurchase> readPurchases(const std::vector<CatalogBlock>& resources) {
  std::vector<InAppPurchase> purchases;
  for (const CatalogBlock& resource : resources) {
    auto productId = textIdOf(resource);
    if (!productId) continue;
    purchases.push_back(readPurchase(resource.block("attributes")));
    purchases.back().productId = std::move(*productId);
  }
  return purchases;
}

}  // namespace quillet
