// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <filesystem>
#include <string>

#include "system/descriptor.h"

namespace quillet {

// The two ends of the socket between starts of one application. They wait without an event loop:
// a later start has none, and needs no display to hand its arguments over.

/// Whether a socket can have this name at all.
[[nodiscard]] bool canBeSocket(const std::filesystem::path& socket);

/// Listens for this user's processes; what stands under the name is replaced. Not open where that
/// cannot be.
[[nodiscard]] Descriptor listenAt(const std::filesystem::path& socket);

/// What became of a message.
enum class Delivery {
  taken,
  takenWithoutWindow,  ///< which the other end cannot open
  gone,                ///< nobody there, or no longer
  silent,              ///< somebody, but no answer in time
};

/// Sends `message` and waits for the sign that it was taken: briefly, and longer once the other end
/// has said that it will come to it.
[[nodiscard]] Delivery deliver(const std::filesystem::path& socket, const std::string& message);

}  // namespace quillet
