// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "base/json_writer.h"
#include "store/records/app_enrichment.h"

namespace quillet {

/// One release of an app, as JSON shows it.
void writeVersion(JsonWriter& writer, const VersionEntry& entry);

/// What a list shows of release notes; printable.
[[nodiscard]] std::string firstLineOf(const std::optional<std::string>& notes);

}  // namespace quillet
