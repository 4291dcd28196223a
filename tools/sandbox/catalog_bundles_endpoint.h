// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "sandbox/request.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// GET the catalog's entries of bundles with "ids" and "platform"; with "include" their apps.
[[nodiscard]] Answer answerCatalogBundles(const SampleStore& store, const Request& request);

}  // namespace quillet::sandbox
