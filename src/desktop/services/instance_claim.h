// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "system/descriptor.h"
#include "system/file_lock.h"

namespace quillet {

/// The right to be the one application of a data folder: a lock on a file in the folder, which says
/// where later starts find the socket that they are to turn to. So it is one folder's, whatever it
/// is called and whoever starts it from where.
class InstanceClaim {
 public:
  /// Of a folder in which nothing can be made, or whose claim was moved on: nobody is heard.
  InstanceClaim() = default;
  /// Listens in `runtimeDirectory`; where that is no folder, or too long a name for a socket, in
  /// the data folder or in a folder of its own among the temporary ones. Where none will do, nobody
  /// is heard.
  InstanceClaim(FileLock lock, const std::filesystem::path& dataDirectory,
                const std::filesystem::path& runtimeDirectory);
  InstanceClaim(InstanceClaim&& other) noexcept;
  InstanceClaim& operator=(InstanceClaim&& other) noexcept;
  ~InstanceClaim();

  /// Absent where nobody is heard.
  [[nodiscard]] const std::filesystem::path& socket() const { return socket_; }

  /// The socket that listens, which is the caller's to close; not open where nobody is heard.
  [[nodiscard]] Descriptor takeListener() { return std::move(listener_); }

  /// Takes the socket's name away: who comes now waits until this claim has ended.
  void removeSocket();

 private:
  std::optional<FileLock> lock_;
  std::filesystem::path socket_;
  std::filesystem::path ownFolder_;  ///< made for the socket alone; empty where it was not
  Descriptor listener_;
};

/// The application runs already, and has taken the arguments.
struct HandedOver {
  bool lacksWindow = false;  ///< which they ask for, and which it cannot open
};
/// Another one runs but does not take them within the time that it gets.
struct Unanswered {};

/// What a start of the application comes to. One that meets an application that is about to end
/// waits for its end. Makes the data folder, for its owner alone.
[[nodiscard]] std::variant<InstanceClaim, HandedOver, Unanswered> claimInstance(
    const std::filesystem::path& dataDirectory, const std::filesystem::path& runtimeDirectory,
    const std::vector<std::string>& arguments);

}  // namespace quillet
