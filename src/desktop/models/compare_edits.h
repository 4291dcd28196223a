// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "desktop/models/compare_list.h"
#include "desktop/services/edit_history.h"

namespace quillet {

// What the user does to the apps that are compared, as edits that are undone with all that the user
// changes.

struct NamedCompared {
  ComparedKey key;
  QString name;  ///< empty where it is not known
};

/// What became of apps that were to be added.
struct CompareAddition {
  std::optional<LibraryEdit> edit;  ///< absent where none was added
  QString refusal;                  ///< why none was, in a sentence
};

// These two change the list at once, so that what comes next knows whether there is room.

/// Adds as many as there is room for, in their order. What is compared already stays where it is.
[[nodiscard]] CompareAddition addToCompare(CompareList& list,
                                           const std::vector<NamedCompared>& apps);
/// Compares these instead, as many as may be.
[[nodiscard]] CompareAddition compareInstead(CompareList& list,
                                             const std::vector<NamedCompared>& apps);

// These when the edit is made.

[[nodiscard]] LibraryEdit removeFromCompare(CompareList& list, const std::vector<AppKey>& apps,
                                            const QString& name);
/// To be the column with that number, from 0.
[[nodiscard]] LibraryEdit moveCompared(CompareList& list, const AppKey& app, std::size_t to,
                                       const QString& name);

}  // namespace quillet
