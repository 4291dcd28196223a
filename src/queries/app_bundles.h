// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "queries/query_call.h"
#include "store/records/app_bundle_info.h"

namespace quillet {

/// The bundles that hold an app: its page in the store names them, the catalog tells of them.
/// Of the page, a kept one will do always: what others read of it is asked for once. Throws what
/// StoreScraper::page() and CatalogClient::bundles() throw.
Task<std::vector<AppBundleInfo>> readAppBundles(std::int64_t trackId, std::string country,
                                                Freshness freshness, QueryServices services,
                                                QueryCall call);

}  // namespace quillet
