// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/catalog_bundles_json.h"

#include "base/urls.h"
#include "store/records/catalog_answer.h"

namespace quillet {

namespace {

/// Absent when the resource has no ID.
std::optional<StoreItem> readItem(const CatalogBlock& resource) {
  const auto id = storeIdOf(resource);
  if (!id) return {};
  const CatalogBlock attributes = attributesFor(resource, Platform::mac);
  const CatalogBlock offer = offerIn(attributes);
  StoreItem item;
  item.id = *id;
  item.name = attributes.text("name");
  item.price = offer.get<double>("price");
  item.priceFormatted = offer.get<std::string>("priceFormatted");
  item.currency = offer.get<std::string>("currencyCode");
  item.url = attributes.get<std::string>("url");
  if (item.url && !isWebAddress(*item.url)) item.url.reset();
  item.artworkTemplate = attributes.block("artwork").get<std::string>("url");
  return item;
}

}  // namespace

std::vector<AppBundleInfo> decodeBundles(const std::string& body) {
  const CatalogAnswer answer(body);
  std::vector<AppBundleInfo> bundles;
  for (const CatalogBlock& resource : answer.resources()) {
    auto bundle = readItem(resource);
    if (!bundle) continue;
    AppBundleInfo& info = bundles.emplace_back();
    info.bundle = std::move(*bundle);
    for (const CatalogBlock& app : relatedResources(resource, "apps")) {
      if (auto item = readItem(app)) info.apps.push_back(std::move(*item));
    }
  }
  return bundles;
}

}  // namespace quillet
