// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "queries/app_bundles.h"

namespace quillet {

Task<std::vector<AppBundleInfo>> readAppBundles(std::int64_t trackId, std::string country,
                                                Freshness freshness, QueryServices services,
                                                QueryCall call) {
  ProductPage page = co_await services.pages.page(trackId, country, call.context);
  std::vector<AppBundleInfo> bundles;
  if (!page.bundleIds.empty()) {
    if (freshness == Freshness::anew) services.catalog.forgetBundles(page.bundleIds, country);
    bundles = co_await services.catalog.bundles(std::move(page.bundleIds), std::move(country),
                                                call.context);
  }
  co_return bundles;
}

}  // namespace quillet
