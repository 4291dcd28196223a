// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "fuzzing.h"
#include "library/schema/keyed_archive.h"

using namespace quillet;

namespace {

/// Whatever can be read can be written and read again.
template <typename Value>
void check(std::string_view bytes) {
  const auto values = unarchive<Value>(bytes);
  if (!values) return;
  require(values->size() <= bytes.size(), "an element takes a byte at least");
  const std::string again = archive(*values);
  const auto reread = unarchive<Value>(again);
  require(reread && archive(*reread) == again, "an archive reads back");
}

}  // namespace

void quillet::tryInput(std::string_view input) {
  check<std::int64_t>(input);
  check<std::string>(input);
}
