// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>

#include "desktop/models/compare_list.h"
#include "desktop/models/record_shelf.h"
#include "desktop/services/edit_history.h"
#include "desktop/services/installed_apps.h"
#include "desktop/services/library_gateway.h"
#include "desktop/services/live_settings.h"
#include "desktop/services/price_data.h"
#include "desktop/services/prompts.h"
#include "desktop/services/state_file.h"
#include "desktop/services/store_gateway.h"
#include "net/clock.h"
#include "system/time_zone.h"
#include "system/user_locale.h"

namespace quillet {

class ImageStore;

/// What sections, pages and windows reach the rest through. All of it outlives them.
struct ViewWorld {
  LibraryGateway& library;
  EditHistory& edits;  ///< all that the user changes in it
  StoreGateway& store;
  PriceData& prices;
  InstalledApps& installed;
  RecordShelf& records;
  ImageStore& images;
  Clock& clock;
  LiveSettings& settings;
  StateFile& state;
  CompareList& compared;
  Prompts& prompts;
  std::function<std::string()> storefront;  ///< the user's, two letters in lower case
  UtcOffsetAt zone;
  UserLocale locale;
};

}  // namespace quillet
