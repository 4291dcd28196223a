// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoroTask>
#include <string>

namespace quillet {

/// An operation under way on the event-loop thread. It has started when it is returned; it must be
/// awaited, or handed to detach().
template <typename T = void>
using Task = QCoro::Task<T>;

/// Runs a task to its end on its own. What it throws is logged with `what` (cancellation is quiet).
void detach(Task<> task, std::string what);

}  // namespace quillet
