// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <vector>

#include "desktop/models/place.h"
#include "desktop/services/edit_history.h"

namespace quillet {

class ListPane;

/// How rows are taken out of a list. The texts are marked for translation in the context
/// "Sections".
struct Removal {
  const char* text = nullptr;     ///< of the menu: "Remove from Watchlist"; null where none is
  const char* counted = nullptr;  ///< several of them: "%n apps"
  EditStep (*step)(const Place& place, const std::vector<RowKey>& rows) = nullptr;
};

/// Takes out the rows that are chosen; absent where none is.
[[nodiscard]] std::optional<LibraryEdit> removalOf(const Removal& removal, const Place& place,
                                                   const ListPane& pane);

/// "“Paperfold”", or of several, "3 alerts"; there is at least one.
[[nodiscard]] QString phraseOf(const char* counted, const std::vector<RowKey>& rows,
                               const ListPane& pane);

/// What steps are made of.
[[nodiscard]] std::vector<AppKey> appsOf(const std::vector<RowKey>& rows);
[[nodiscard]] std::vector<RowId> idsOf(const std::vector<RowKey>& rows);

}  // namespace quillet
