// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonValue>
#include <QString>
#include <vector>

#include "desktop/models/place.h"

namespace SQLite {
class Database;
}

namespace quillet {

// The state file's; never change.
inline constexpr const char* kRecentSearchesKey = "recentSearches";

/// What was searched for, the last one first, as the state file keeps it: an array of objects with
/// "query", "platform" and "country". What cannot be read is left out.
[[nodiscard]] std::vector<SearchRequest> recentSearches(const QJsonValue& kept);

/// Where a hint comes from, in the order in which they are shown.
enum class HintKind { recent, saved, watched, owned, seen };

/// Something that is known here and may be what is about to be typed.
struct SearchHint {
  HintKind kind = HintKind::recent;
  QString text;
  /// What to search for. Only a recent or a saved one says more than the query.
  StoreQuery query;
  QString folded;  ///< the text, to be compared

  friend bool operator==(const SearchHint&, const SearchHint&) = default;
};

[[nodiscard]] std::vector<SearchHint> hintsOf(const std::vector<SearchRequest>& recent);

/// Saved searches, and the names of apps that the user has listed or seen. Runs on the library's
/// thread.
[[nodiscard]] std::vector<SearchHint> libraryHints(SQLite::Database& database);

inline constexpr std::size_t kMostHints = 8;

/// Of all hints those in which each typed word begins a word, at most kMostHints: a few recent and
/// saved searches before names of apps, those that begin with what is typed before others of their
/// kind, and no text twice. Without words, searches alone.
[[nodiscard]] std::vector<SearchHint> matchingHints(const std::vector<SearchHint>& all,
                                                    const QString& typed);

/// "recent search", "in the watchlist"
[[nodiscard]] QString kindText(HintKind kind);
[[nodiscard]] QString iconOf(HintKind kind);

/// What tells searches of the same words apart: "iPad · de"; empty for the Mac in `storefront`, the
/// user's own.
[[nodiscard]] QString asideOf(const SearchRequest& request, const std::string& storefront);

}  // namespace quillet
