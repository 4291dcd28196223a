// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStandardItemModel>
#include <optional>
#include <vector>

#include "desktop/frame/section_table.h"
#include "desktop/models/saved_query.h"
#include "library/library_counts.h"

namespace quillet {

/// What an index of the sidebar yields, beside its name.
enum SidebarRole {
  SectionRole = Qt::UserRole + 1,  ///< int of a SectionId; invalid for the head of a group
  CollectionRole,                  ///< qlonglong; 0 for what is no collection
  SavedSearchRole,                 ///< qlonglong; 0 for what is no saved search
  SymbolRole,                      ///< the icon's name
  CountRole,                       ///< QString, in grey
  BadgeRole,                       ///< QString, in the one filled badge; empty for none
};

/// What an item of the sidebar stands for: a section, one collection of them, or a saved search.
struct SidebarTarget {
  SectionId section = SectionId::watchlist;
  RowId collection = 0;   ///< 0 for none
  RowId savedSearch = 0;  ///< 0 for none

  friend bool operator==(const SidebarTarget&, const SidebarTarget&) = default;
};

/// The sidebar's tree: groups, their sections, the collections below theirs, and the saved searches
/// as a group of their own, which is there where there are any. What stays the same over a change
/// keeps its index, so that the selection stays.
class SidebarModel : public QStandardItemModel {
  Q_OBJECT

 public:
  explicit SidebarModel(const std::vector<SectionId>& sections);

  void setCounts(const LibraryCounts& counts);
  void setCompared(std::size_t apps);
  void setSavedSearches(const std::vector<SavedQuery>& searches);

  /// What is not there is its section; a section that is not there is no index.
  [[nodiscard]] QModelIndex find(const SidebarTarget& target) const;
  [[nodiscard]] QModelIndex find(SectionId section) const { return find(SidebarTarget{section}); }
  /// Absent for the head of a group.
  [[nodiscard]] static std::optional<SidebarTarget> targetOf(const QModelIndex& index);
  /// The head of the saved searches; no index while there are none.
  [[nodiscard]] QModelIndex savedSearches() const;

 private:
  void addGroup(SectionGroup group, const std::vector<SectionId>& sections);
  [[nodiscard]] QStandardItem* itemOf(SectionId section) const;
  void setTexts(SectionId section, const QString& count, const QString& badge = {});
  void setCollections(const std::vector<CollectionCount>& collections);

  QStandardItem* saved_ = nullptr;  ///< the head of the saved searches, while it is there
};

}  // namespace quillet
