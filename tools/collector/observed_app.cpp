// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/observed_app.h"

#include "base/text.h"

namespace quillet {

std::optional<ObservedApp> observed(const ITunesApp& app) {
  if (!app.price || !app.currency || *app.price < 0) return {};
  return ObservedApp{.trackId = app.trackId,
                     .name = printable(app.trackName),
                     .seller = printable(app.sellerName.value_or(app.artistName.value_or(""))),
                     .currency = printable(*app.currency),
                     .kind = printable(app.kind.value_or("")),
                     .price = *app.price,
                     .released = app.currentVersionReleaseDate.value_or(Instant{})};
}

}  // namespace quillet
