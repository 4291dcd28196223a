// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "sandbox/library/sample_watch.h"

namespace quillet::sandbox {

/// Leaves a watch the alerts of the last fortnight, for the user clears older ones away, and lets
/// some apps of note have been heard of today, yesterday and in the days before: that is when a
/// check found what the store had changed.
void tellOfRecentOnes(Watch& watch, Instant now);

}  // namespace quillet::sandbox
