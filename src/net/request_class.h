// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

namespace quillet {

/// Who waits for a request: a person, or work that nobody looks at. Where requests stand in line,
/// the first ones go before.
enum class RequestClass { interactive, background };

}  // namespace quillet
