// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <algorithm>

#include "base/columns.h"
#include "fuzzing.h"

using namespace quillet;

namespace {

bool isControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F;
}

void checkPrintable(std::string_view text) {
  const std::string safe = printable(text);
  require(isValidUtf8(safe), "printable text is valid UTF-8");
  require(std::none_of(safe.begin(), safe.end(), isControl), "no C0 control and no DEL is left");
  for (std::size_t i = 0; i + 1 < safe.size(); ++i) {
    const bool isC1 = safe[i] == '\xC2' && static_cast<unsigned char>(safe[i + 1]) < 0xA0;
    require(!isC1, "no C1 control is left");
  }
  require(safe.find("\u202E") == std::string::npos, "nothing turns the direction");
  require(printable(safe) == safe, "printable text stays as it is");
}

void checkWidths(std::string_view text, std::size_t width) {
  require(columnCount(shortened(text, width, "…")) <= width, "shortened text fits");
  require(columnCount(firstColumns(text, width)) <= width, "the first columns fit");
  for (const std::string& line : wrapped(text, width)) {
    const bool isOneWord = line.find(' ') == std::string::npos;
    require(isOneWord || columnCount(line) <= width, "a line of several words fits");
  }
}

}  // namespace

void quillet::tryInput(std::string_view input) {
  const std::size_t width = takeNumber<std::uint8_t>(input) % 100;
  checkPrintable(input);
  checkWidths(input, width);
  checkWidths(printable(input, LineFeeds::keep), width);
  require(trimmed(trimmed(input)) == trimmed(input), "trimmed input has nothing to trim");
}
