// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

namespace quillet {

/// Handles events, and waits for the global thread pool, until nothing is left to be done at once.
void handlePendingEvents();

}  // namespace quillet
