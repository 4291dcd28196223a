// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "analysis/filter_match.h"
#include "base/log_sink.h"
#include "system/environment.h"

namespace quillet {

/// The apps that the user owns. Throws CLIError like the listings, where there is no database too.
[[nodiscard]] TrackIds readOwnedTrackIds(const Environment& environment, const LogSink& log = {});

}  // namespace quillet
