// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "sandbox/fault.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// The port is taken, or may not be had.
class CannotListen : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Serves a store on the loopback interface, from the constructor to the destructor, on threads of
/// its own.
class Server {
 public:
  struct Options {
    int port = 0;       ///< 0: `usualPort`, or any free one
    int usualPort = 0;  ///< 0: none; another is found where it is taken
    std::vector<Fault> faults;
    std::FILE* log = nullptr;  ///< gets one line per request
    bool hasPictures = false;  ///< whether addresses of pictures lead to the server itself
  };

  /// Listens when it returns. The store must outlive the server. Throws CannotListen.
  Server(const SampleStore& store, Options options);
  ~Server();

  /// "http://127.0.0.1:" and the port.
  [[nodiscard]] std::string address() const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace quillet::sandbox
