// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <vector>

#include "desktop/models/app_row.h"
#include "desktop/models/page_facts.h"
#include "desktop/models/record_shelf.h"
#include "desktop/services/edit_history.h"
#include "library/watched_apps.h"
#include "system/settings.h"

namespace quillet {

/// An app that is to be watched, and what is known of it before the library is asked.
struct AppToWatch {
  WatchedApp row;                       ///< as far as a list or a page tells
  std::optional<Instant> pricedAt;      ///< when that was its price, where it is told
  std::optional<ShelvedRecord> record;  ///< of this run
};

/// From a list's row, or a page.
[[nodiscard]] AppToWatch toWatch(const AppRow& row, const RecordShelf& records);
[[nodiscard]] AppToWatch toWatch(const PageFacts& facts, const RecordShelf& records);

/// What the settings say of new watches.
[[nodiscard]] WatchOptions watchDefaults(const Settings& settings);

/// What is to be another in the options of watched apps; what is absent stays as each has it.
struct WatchChange {
  struct Target {
    std::optional<double> price;  ///< absent: none
    friend bool operator==(const Target&, const Target&) = default;
  };
  struct Mute {
    std::optional<Instant> until;  ///< absent: not muted
    friend bool operator==(const Mute&, const Mute&) = default;
  };

  std::optional<bool> anyDrop;
  std::optional<bool> whenFree;
  std::optional<bool> newVersion;
  std::optional<bool> purchases;
  std::optional<Target> target;
  std::optional<Mute> mute;

  friend bool operator==(const WatchChange&, const WatchChange&) = default;
};

/// The options with the change. A target that is another is in the currency of the app's price.
[[nodiscard]] WatchOptions changed(const WatchedApp& app, const WatchChange& change);

/// Watched apps, as texts call them: by the name of one, by their number otherwise.
struct WatchedNames {
  QString one;
  std::size_t count = 1;
};

/// Of those that are not watched yet. Their rows are made of the newest record, the shelf's or the
/// kept one; of what is known besides where there is none, and the price also where that is newer.
[[nodiscard]] EditStep watchingNew(std::vector<AppToWatch> apps, const WatchOptions& options,
                                   Instant now);
/// The same as an edit.
[[nodiscard]] LibraryEdit watchEdit(std::vector<AppToWatch> apps, const WatchOptions& options,
                                    Instant now);
/// Watches those that are not watched yet, and makes the price that each one's row tells its
/// target. There is one.
[[nodiscard]] LibraryEdit targetEdit(const std::vector<AppToWatch>& apps,
                                     const WatchOptions& options, Instant now);
[[nodiscard]] LibraryEdit stopEdit(std::vector<AppKey> apps, const WatchedNames& names);
/// Of those that are watched.
[[nodiscard]] LibraryEdit changeEdit(std::vector<AppKey> apps, const WatchedNames& names,
                                     const WatchChange& change);
/// The same, said of alerts alone.
[[nodiscard]] LibraryEdit muteEdit(std::vector<AppKey> apps, const WatchedNames& names,
                                   std::optional<Instant> until);

}  // namespace quillet
