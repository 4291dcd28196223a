// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <algorithm>

#include "base/errors.h"
#include "fuzzing.h"
#include "system/endpoints.h"
#include "system/environment.h"
#include "system/ini_value.h"
#include "system/settings_keys.h"

using namespace quillet;

namespace {

class EmptyEnvironment final : public Environment {
 public:
  [[nodiscard]] std::optional<std::string> get(std::string_view /*name*/) const override {
    return {};
  }
};

void checkEndpoints(const Settings& settings) {
  try {
    const Endpoints endpoints = findEndpoints(EmptyEnvironment{}, settings, {});
    require(endpoints.itunes.starts_with("http"), "an address begins with its scheme");
    require(std::count(endpoints.itunes.begin(), endpoints.itunes.end(), '/') == 2,
            "a server's address has no path");
    require(printable(endpoints.priceData) == endpoints.priceData, "an address holds no control");
  } catch (const BadSetting& error) {
    require(isValidUtf8(error.what()), "a complaint is valid UTF-8");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = textOf(data, size);
  const IniSettings settings = IniSettings::parse(text);
  checkEndpoints(settings);
  const auto country = storefrontCountry(settings);
  require(!country || isTwoLetters(*country), "a storefront is two letters");
  const std::int64_t months = readSetting(settings, kStaleAfterMonths);
  require(months >= kStaleAfterMonths.lowest && months <= kStaleAfterMonths.highest,
          "a number keeps to its range");
  const auto value = iniValueText(text);
  require(!value || !isValidUtf8(text) || isValidUtf8(*value), "escapes give valid UTF-8");
  return 0;
}
