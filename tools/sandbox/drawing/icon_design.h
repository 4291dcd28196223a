// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include "sandbox/drawing/motif.h"
#include "sandbox/drawing/palette.h"
#include "sandbox/drawing/subject.h"

namespace quillet::sandbox {

/// What lies between an icon's ground and what it shows.
enum class Backdrop : std::uint8_t { plain, hills, disc, glow, sheen, rings };

struct IconDesign {
  const Motif* motif;
  const Palette* palette;
  Backdrop backdrop;
};

/// How the icon of an app looks: as it is laid down for that name, else by what its name, its few
/// words or its category tell of it, and by its key where that leaves a choice.
[[nodiscard]] IconDesign designOf(const Subject& subject);

}  // namespace quillet::sandbox
