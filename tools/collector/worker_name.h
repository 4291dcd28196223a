// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace quillet {

/// What this process calls itself in the record: the machine and the process. Two that run at the
/// same time, wherever, have different names.
[[nodiscard]] std::string workerName();

/// Whether the worker was a process of this machine that is no more. False for those of others.
[[nodiscard]] bool hasWorkerEnded(const std::string& worker);

}  // namespace quillet
