// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "system/environment.h"

namespace quillet {

/// What QUILLET_LOG asks to be told on standard error: "net,db", each topic alone, in any order.
/// Every line of a topic begins with its name and a blank.
struct LogTopics {
  bool net = false;    ///< each request
  bool db = false;     ///< each query of the library
  bool lib = false;    ///< messages of the libraries that we use
  bool start = false;  ///< how far the application's window has come
  bool loop = false;   ///< what held the application's windows for longer than a frame
  std::vector<std::string> unknown;  ///< words that name no topic, as they were written

  bool operator==(const LogTopics&) const = default;
};

[[nodiscard]] LogTopics readLogTopics(const Environment& environment);

/// What is said of words that name no topic, in one line without its end; empty where there are
/// none.
[[nodiscard]] std::string unknownTopicsLine(const LogTopics& topics);

}  // namespace quillet
