// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/limit_remark.h"

#include <fmt/format.h>

#include "cli/cli_error.h"

namespace quillet {

std::string limitRemark(const CutList& list) {
  const std::string_view more = list.more == MoreMatches::surely ? "more match" : "more may match";
  std::string text(more);
  if (!list.sortedFrom.empty()) {
    text = fmt::format("only the first {} in {} order were sorted, and {}", list.limit,
                       list.sortedFrom, more);
  }
  if (list.limit >= list.longest) {
    return text + fmt::format("; {} is the most that one list shows.", list.longest);
  }
  return text + fmt::format("; -n {0} shows up to {0}.", list.longest);
}

RemarkSink Remarks::sink() {
  if (streams_.errWidth == 0) return {};
  return [this](std::string remark) { remarks_.push_back(std::move(remark)); };
}

void Remarks::tell() const {
  for (const std::string& remark : remarks_) {
    streams_.err.write(renderRemark(remark, streams_.errWidth));
  }
}

}  // namespace quillet
