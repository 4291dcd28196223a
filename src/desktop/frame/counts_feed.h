// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QTimer>

#include "desktop/models/saved_query.h"
#include "desktop/models/view_world.h"
#include "library/library_counts.h"

namespace quillet {

/// What the sidebar shows of the library.
struct SidebarFacts {
  LibraryCounts counts;
  std::vector<SavedQuery> searches;  ///< by name, letter case aside
};

/// Keeps how much the library holds, and the saved searches, as the library is.
class CountsFeed : public QObject {
  Q_OBJECT

 public:
  /// `known`: what is told until the library is open. The world outlives the feed.
  CountsFeed(const ViewWorld& world, SidebarFacts known);

  [[nodiscard]] const LibraryCounts& counts() const { return facts_.counts; }
  [[nodiscard]] const std::vector<SavedQuery>& searches() const { return facts_.searches; }
  /// Null for one that is not there.
  [[nodiscard]] const SavedQuery* search(RowId key) const;

 Q_SIGNALS:
  void changed();

 private:
  void take(const LibraryChanges& changes);
  void readSoon();
  static Task<> read(QPointer<CountsFeed> feed);

  LibraryGateway& library_;
  std::function<std::string()> storefront_;
  SidebarFacts facts_;
  QTimer again_;  ///< changes come in bursts
};

}  // namespace quillet
