// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quillet {

/// What this process calls itself in the record: the machine and the process. Two that run at the
/// same time, wherever, have different names.
[[nodiscard]] std::string workerName();

/// The number of the process that is called `other`, if that is another one on the machine of the
/// worker `own`.
[[nodiscard]] std::optional<std::int64_t> processBeside(const std::string& own,
                                                        const std::string& other);

/// Whether the worker was a process of this machine that is no more. False for those of others.
[[nodiscard]] bool hasWorkerEnded(const std::string& worker);

}  // namespace quillet
