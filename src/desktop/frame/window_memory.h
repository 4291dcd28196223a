// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>

#include "desktop/frame/content_pane.h"
#include "desktop/models/saved_query.h"
#include "desktop/services/state_file.h"
#include "library/library_counts.h"

namespace quillet {

/// What a window remembers from one run to the next, read and written by the names that the state
/// file has for it.
class WindowMemory {
 public:
  /// The file outlives this.
  explicit WindowMemory(StateFile& file) : file_(file) {}

  /// Search, where nothing was kept.
  [[nodiscard]] Place place() const;
  /// Also keeps its sort and chips for the next visit of the same section, and of Search what was
  /// asked there.
  void setPlace(const Place& place);
  /// Where a section begins: with the sort and the chips that it had last, and Search with what was
  /// asked last.
  [[nodiscard]] Place firstPlace(SectionId section, std::optional<RowId> collection) const;

  /// Empty where nothing was kept.
  [[nodiscard]] QRect geometry() const;
  void setGeometry(const QRect& geometry);
  [[nodiscard]] bool isMaximized() const;
  void setMaximized(bool isMaximized);

  [[nodiscard]] int sidebarWidth() const;
  void setSidebarWidth(int width);
  [[nodiscard]] bool showsSidebar() const;
  void setShowsSidebar(bool shows);
  [[nodiscard]] bool showsMenuBar() const;
  void setShowsMenuBar(bool shows);
  [[nodiscard]] double listShare() const;
  void setListShare(double share);
  [[nodiscard]] PageMode pageMode() const;
  void setPageMode(PageMode mode);

  /// As they were read last.
  [[nodiscard]] LibraryCounts counts() const;
  void setCounts(const LibraryCounts& counts);
  [[nodiscard]] std::vector<SavedQuery> searches() const;
  void setSearches(const std::vector<SavedQuery>& searches);

 private:
  StateFile& file_;
};

}  // namespace quillet
