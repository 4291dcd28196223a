// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "store/itunes_client.h"
#include "store/records/chart_type.h"

namespace quillet {

/// The apps of a chart now, by the store's public feed at `address`, at most 100. Empty for a chart
/// that does not exist. Errors as of ITunesClient::fetch().
Task<std::vector<std::int64_t>> chartIds(ITunesClient* itunes, std::string address, ChartType chart,
                                         Platform platform, std::string country, StopToken stop);

}  // namespace quillet
