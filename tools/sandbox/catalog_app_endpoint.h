// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "sandbox/request.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// GET the catalog's entry of one app with "platform", and what "extend" and "include" ask for.
[[nodiscard]] Answer answerCatalogApp(const SampleStore& store, const Request& request);

}  // namespace quillet::sandbox
