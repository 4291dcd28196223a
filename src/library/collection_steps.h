// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "library/edit_steps.h"

namespace quillet {

/// What a copy of the collection of that name is called, where others have these names.
using CopyName =
    std::function<std::string(const std::string& name, const std::vector<std::string>& taken)>;

/// A new collection that holds what that one does, with the notes; made at that time.
[[nodiscard]] EditStep duplicatingCollection(RowId collection, Instant when, CopyName name);

/// Takes the entries of these apps over into another collection. Of an app that is there already,
/// the entry there stays, and gets the note where it has none.
[[nodiscard]] EditStep movingEntries(RowId from, RowId to, std::vector<AppKey> apps);

/// The note on one app in a collection.
[[nodiscard]] EditStep noting(RowId collection, AppKey app, std::string note);

}  // namespace quillet
