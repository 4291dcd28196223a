// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "sandbox/request.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// GET the web page of an app. Its data stands in one of the forms that the real pages have.
[[nodiscard]] Answer answerProductPage(const SampleStore& store, const Request& request);

}  // namespace quillet::sandbox
