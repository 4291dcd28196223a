// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/observed_app.h"

namespace quillet {

std::optional<ObservedApp> observed(const ITunesApp& app) {
  if (!app.price || !app.currency || *app.price < 0) return {};
  return ObservedApp{.trackId = app.trackId,
                     .name = app.trackName,
                     .seller = app.sellerName.value_or(app.artistName.value_or("")),
                     .currency = *app.currency,
                     .kind = app.kind.value_or(""),
                     .price = *app.price,
                     .released = app.currentVersionReleaseDate.value_or(Instant{})};
}

}  // namespace quillet
