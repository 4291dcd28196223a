// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "sandbox/request.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// GET the list of the price files, manifest.json.
[[nodiscard]] Answer answerPriceManifest(const SampleStore& store, const Request& request);

/// GET the price changes of a storefront, changes-us.json.gz and its like.
[[nodiscard]] Answer answerPriceFile(const SampleStore& store, const Request& request);

}  // namespace quillet::sandbox
