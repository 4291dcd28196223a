// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <tuple>

#include "library/schema/alert_record.h"
#include "library/schema/app_collection.h"
#include "library/schema/cached_app.h"
#include "library/schema/chart_records.h"
#include "library/schema/deal.h"
#include "library/schema/import_record.h"
#include "library/schema/owned_app.h"
#include "library/schema/price_point.h"
#include "library/schema/saved_search.h"
#include "library/schema/watched_app.h"

namespace quillet {

/// Everything that is kept; owners come before what refers to them.
using Entities = std::tuple<WatchedApp, OwnedApp, AppCollection, CollectionEntry, SavedSearch,
                            AlertRecord, PricePoint, PurchasePricePoint, RankPoint, ChartSnapshot,
                            ChartCache, ImportRecord, CachedApp, Deal>;

}  // namespace quillet
