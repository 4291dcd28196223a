// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command_line_options.h"
#include "cli/streams.h"

namespace quillet {

/// Who is told, in a sentence, what a list leaves out; empty where no person sits at a terminal.
using RemarkSink = std::function<void(std::string remark)>;

/// Remarks that are kept until the list they are about has been written, so that they stand where
/// the eye is.
class Remarks {
 public:
  explicit Remarks(const Streams& streams) : streams_(streams) {}
  Remarks(const Remarks&) = delete;

  /// Valid as long as this; empty where standard error is no terminal.
  [[nodiscard]] RemarkSink sink();
  void tell() const;

 private:
  const Streams& streams_;
  std::vector<std::string> remarks_;
};

/// Whether there is more than a list shows.
enum class MoreMatches { surely, perhaps };

/// A list that stopped at its limit.
struct CutList {
  std::size_t limit = 0;
  MoreMatches more = MoreMatches::surely;
  std::size_t longest = kLongestList;  ///< that a greater limit can make it
  /// Whose order the list was cut in before it was sorted, "the store's"; empty where it shows the
  /// first of all.
  std::string_view sortedFrom = {};
};

/// "more match; -n 200 shows up to 200."
[[nodiscard]] std::string limitRemark(const CutList& list);

}  // namespace quillet
