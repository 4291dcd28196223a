// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <vector>

#include "desktop/services/edit_history.h"
#include "library/alerts.h"

namespace quillet {

class ListPane;

/// How rows are marked as read, or as unread.
struct Marking {
  const char* counted = nullptr;  ///< several of them: "%n alerts"; in the context "Sections"
  EditStep (*step)(std::vector<RowId> rows, ReadState state) = nullptr;  ///< null where none is
};

/// What is chosen becomes read, unless all of it is.
[[nodiscard]] QString markingTextOf(const Marking& marking, const ListPane& pane);
/// Absent where nothing is chosen.
[[nodiscard]] std::optional<LibraryEdit> markingOf(const Marking& marking, const ListPane& pane);

}  // namespace quillet
