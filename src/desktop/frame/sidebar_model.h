// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStandardItemModel>
#include <vector>

#include "desktop/models/place.h"
#include "library/library_counts.h"

namespace quillet {

/// What an index of the sidebar yields, beside its name.
enum SidebarRole {
  SectionRole = Qt::UserRole + 1,  ///< int of a SectionId; invalid for the head of a group
  CollectionRole,                  ///< qlonglong; 0 for what is no collection
  SymbolRole,                      ///< the icon's name
  CountRole,                       ///< QString, in grey
  BadgeRole,                       ///< QString, in the one filled badge; empty for none
};

/// The sidebar's tree: groups, their sections, and the collections below theirs. What stays the
/// same over a change of the counts keeps its index, so that the selection stays.
class SidebarModel : public QStandardItemModel {
  Q_OBJECT

 public:
  explicit SidebarModel(const std::vector<SectionId>& sections);

  void setCounts(const LibraryCounts& counts);

  /// A collection that is not there is its section; a section that is not there is no index.
  [[nodiscard]] QModelIndex find(SectionId section, RowId collection = 0) const;

 private:
  [[nodiscard]] QStandardItem* itemOf(SectionId section) const;
  void setTexts(SectionId section, const QString& count, const QString& badge = {});
  void setCollections(const std::vector<CollectionCount>& collections);
};

}  // namespace quillet
