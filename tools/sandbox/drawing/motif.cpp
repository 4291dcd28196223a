// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/drawing/motif.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "sandbox/drawing/motif_rows.h"

namespace quillet::sandbox {

const Motif& motifNamed(std::string_view name) {
  for (const auto rows :
       {paperMotifs(), natureMotifs(), toolMotifs(), mediaMotifs(), lifeMotifs()}) {
    const auto found = std::ranges::find(rows, name, &Motif::name);
    if (found != rows.end()) return *found;
  }
  throw std::out_of_range("no motif " + std::string(name));
}

}  // namespace quillet::sandbox
