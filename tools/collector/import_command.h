// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <stdexcept>

#include "collector/command_call.h"

namespace quillet {

/// That published files are not what a publisher wrote; the text is a sentence that says which.
class UnfitForImport : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Makes the record from what a folder has published. Publishing it again gives the same files.
/// Returns the status. Throws UnfitForImport, RecordInTheWay, DatabaseError and StoppedBefore; then
/// nothing is recorded.
int importPublished(const CommandCall& call);

}  // namespace quillet
