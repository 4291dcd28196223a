// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "sandbox/request.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// GET stories of the store's editors with "ids" and "platform".
[[nodiscard]] Answer answerEditorial(const SampleStore& store, const Request& request);

}  // namespace quillet::sandbox
