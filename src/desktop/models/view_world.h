// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/services/library_gateway.h"
#include "net/clock.h"
#include "system/settings.h"
#include "system/time_zone.h"
#include "system/user_locale.h"

namespace quillet {

class ImageStore;

/// What sections and pages reach the rest through. All of it outlives them.
struct ViewWorld {
  LibraryGateway& library;
  ImageStore& images;
  Clock& clock;
  const Settings& settings;
  UtcOffsetAt zone;
  UserLocale locale;
};

}  // namespace quillet
