// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

#include "library/app_key.h"
#include "store/answer_cache.h"
#include "store/records/itunes_app.h"
#include "store/records/platform.h"

namespace quillet {

/// What the search service told of an app in this run, and when.
struct ShelvedRecord {
  ITunesApp app;
  Platform platform = Platform::mac;  ///< of the record's build, or for which it was asked
  Instant asOf{};
};

/// The records that lists and pages got in this run, so that none is asked for twice.
using RecordShelf = AnswerCache<AppKey, ShelvedRecord>;

inline constexpr std::size_t kShelvedRecords = 1000;

}  // namespace quillet
