// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

#include "system/environment.h"
#include "system/places.h"
#include "system/settings.h"
#include "system/settings_keys.h"

namespace quillet {

/// The servers' base addresses: scheme, host and port without a trailing slash, to which paths are
/// appended. Price data may instead lie in a folder, "file:///some/folder".
struct Endpoints {
  std::string itunes;     ///< search, lookup and feeds
  std::string appStore;   ///< product and chart pages, catalog and editorial service
  std::string priceData;  ///< published price files
};

/// For each the environment variable (QUILLET_ITUNES_URL, QUILLET_APP_STORE_URL,
/// QUILLET_PRICE_DATA_URL), else the settings key, else the default. Throws BadSetting for an
/// address that cannot be used.
[[nodiscard]] Endpoints findEndpoints(const Environment& environment, const Settings& settings,
                                      const Places& places);

/// Whether the value could be taken for that setting, one of the three addresses or that of the
/// list of releases, which is https or on this machine. An empty one can: it stands for the
/// default.
[[nodiscard]] bool isUsableAddress(const TextSetting& setting, std::string_view value);

}  // namespace quillet
