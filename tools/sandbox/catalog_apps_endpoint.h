// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "sandbox/request.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// GET the catalog's entries of up to 50 apps with "ids" and "platform"; with "views" their
/// purchases as well.
[[nodiscard]] Answer answerCatalogApps(const SampleStore& store, const Request& request);

}  // namespace quillet::sandbox
