// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>

namespace quillet {

/// Handles events, and waits for the global thread pool, until nothing is left to be done at once.
void handlePendingEvents();

/// Handles events until `holds` says so.
template <typename Condition>
void waitFor(Condition holds) {
  while (!holds()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

}  // namespace quillet
