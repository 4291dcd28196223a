// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/log_sink.h"

namespace quillet {

/// How a command prints its result and its errors.
enum class OutputForm { text, json };

/// Where output goes. A test hands in one that collects.
class TextStream {
 public:
  virtual ~TextStream() = default;

  /// Writes all of `text`. Throws CLIError when it cannot, as on a full disk.
  virtual void write(std::string_view text) = 0;
};

/// What text output may use where it is shown.
struct TextStyle {
  bool colour = false;
  bool utf8 = true;
  std::size_t width = 0;  ///< columns of the terminal; 0 where nothing limits a line
  bool isWhole = false;   ///< long texts are printed to their end: nobody has to scroll back
};

struct Streams {
  TextStream& out;
  TextStream& err;
  TextStyle style;           ///< of `out`
  std::size_t errWidth = 0;  ///< columns of `err` where that is a terminal, at which a person sits
};

/// Log lines written to `stream`, which outlives the sink.
[[nodiscard]] inline LogSink logSinkTo(TextStream& stream) {
  return [&stream](const std::string& line) { stream.write(line + '\n'); };
}

}  // namespace quillet
