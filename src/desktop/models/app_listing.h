// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <map>
#include <vector>

#include "desktop/models/app_texts.h"
#include "desktop/models/view_world.h"
#include "library/watched_apps.h"

namespace quillet {

/// Apps that the user puts into a list, with what the store told of them in this run. A copy goes
/// to the library's thread, which adds what it knows itself.
struct AppsToList {
  std::vector<AppKey> apps;
  std::map<AppKey, ShelvedRecord> shelved;
  Instant when{};
};
[[nodiscard]] AppsToList appsToList(const std::vector<NamedKey>& apps, const ViewWorld& world);

// Steps of apps of which something is known; others are left out.

[[nodiscard]] EditStep collecting(RowId collection, AppsToList apps);
/// Into a new collection.
[[nodiscard]] EditStep collectingAnew(AppCollection collection, AppsToList apps);
[[nodiscard]] EditStep owningByHand(AppsToList apps);
[[nodiscard]] EditStep watchingListed(AppsToList apps, const WatchOptions& options);

[[nodiscard]] std::vector<AppKey> keysOf(const std::vector<NamedKey>& apps);
/// "“Paperfold”", or "3 apps".
[[nodiscard]] QString phraseOf(const std::vector<NamedKey>& apps);

}  // namespace quillet
