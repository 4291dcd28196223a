// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "net/stop_token.h"

namespace quillet {

/// A stop that comes with the first of two, as long as this lives.
class EitherStop {
 public:
  EitherStop(const StopToken& first, const StopToken& second)
      : onFirst_(first, [this] { source_.requestStop(); }),
        onSecond_(second, [this] { source_.requestStop(); }) {}

  [[nodiscard]] StopToken token() const { return source_.token(); }

 private:
  StopSource source_;
  StopCallback onFirst_;
  StopCallback onSecond_;
};

}  // namespace quillet
