// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/section.h"

namespace quillet {

RowContext rowContext(const ViewWorld& world) {
  return {world.clock.now(), world.zone, world.locale, readMaintenanceThresholds(world.settings)};
}

}  // namespace quillet
