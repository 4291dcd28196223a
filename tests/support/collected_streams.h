// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "cli/streams.h"

namespace quillet {

/// A stream that keeps what is written, and how often.
class CollectedStream final : public TextStream {
 public:
  void write(std::string_view text) override {
    content += text;
    ++writes;
  }

  std::string content;
  int writes = 0;
};

struct CollectedStreams {
  CollectedStream out;
  CollectedStream err;
  TextStyle style;
  std::size_t errWidth = 0;  ///< above 0: a person sits at a terminal

  [[nodiscard]] Streams streams() { return {out, err, style, errWidth}; }
};

}  // namespace quillet
