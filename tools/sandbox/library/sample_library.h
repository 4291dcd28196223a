// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>

#include "net/task.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// Writes into `folder` the library of someone who has used Quillet for a year, until `now`, on the
/// store's day or soon after it, with the store's apps; the same for the same store and time. A
/// library that is there already is left as it is. Throws
/// DatabaseError. The store outlives the task.
Task<> writeSampleLibrary(const SampleStore* store, std::filesystem::path folder, Instant now);

}  // namespace quillet::sandbox
