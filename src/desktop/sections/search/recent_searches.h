// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonArray>
#include <QJsonValue>

#include "analysis/search_command_line.h"

namespace quillet {

/// What was searched for, the last one first, with one more: its words, platform and storefront,
/// each combination once, the oldest forgotten.
[[nodiscard]] QJsonArray withRecentSearch(const QJsonValue& kept, const SearchRequest& request);

}  // namespace quillet
