// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/new_search.h"

#include "system/settings_keys.h"

namespace quillet {

StoreQuery newSearch(const Settings& settings, std::string text) {
  StoreQuery query;
  SearchRequest& request = query.request;
  request.query = std::move(text);
  const auto chosen = settings.text(kDefaultPlatform.key);
  request.platform = valueOf(kPlatformWords, chosen.value_or("")).value_or(request.platform);
  return query;
}

}  // namespace quillet
