// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

#include "sandbox/request.h"

namespace quillet::sandbox {

/// A page of the store's web host whose script holds the data, among other scripts.
[[nodiscard]] Answer pageWith(std::string_view title, std::string_view data);

/// The refusal of a client that calls itself something else than a browser.
[[nodiscard]] Answer pageRefusal();

[[nodiscard]] Answer pageNotFound();

}  // namespace quillet::sandbox
