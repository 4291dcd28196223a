// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <algorithm>

#include "fuzzing.h"
#include "support/map_environment.h"
#include "system/endpoints.h"
#include "system/ini_value.h"
#include "system/settings_keys.h"

using namespace quillet;

namespace {

void checkEndpoints(const Settings& settings) {
  readOrRefuse<BadSetting>([&] {
    const Endpoints endpoints = findEndpoints(MapEnvironment(), settings, {});
    require(endpoints.itunes.starts_with("http"), "an address begins with its scheme");
    require(std::count(endpoints.itunes.begin(), endpoints.itunes.end(), '/') == 2,
            "a server's address has no path");
    require(printable(endpoints.priceData) == endpoints.priceData, "an address holds no control");
  });
}

}  // namespace

void quillet::tryInput(std::string_view input) {
  const IniSettings settings = IniSettings::parse(input);
  checkEndpoints(settings);
  const auto country = storefrontCountry(settings);
  require(!country || isTwoLetters(*country), "a storefront is two letters");
  const std::int64_t months = readSetting(settings, kStaleAfterMonths);
  require(months >= kStaleAfterMonths.lowest && months <= kStaleAfterMonths.highest,
          "a number keeps to its range");
  const auto value = iniValueText(input);
  require(!value || !isValidUtf8(input) || isValidUtf8(*value), "escapes give valid UTF-8");
}
