// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/hand_written.h"

#include <fmt/format.h>

#include <map>
#include <tuple>
#include <utility>

#include "base/enum_table.h"
#include "base/errors.h"
#include "sandbox/data_files.h"
#include "sandbox/data_object.h"

namespace quillet::sandbox {

namespace {

using Makers = std::map<std::string, Maker, std::less<>>;

constexpr EnumTable<MacBuild, 3> kMacBuildWords{{
    {MacBuild::universal, "universal"},
    {MacBuild::intelOnly, "intelOnly"},
    {MacBuild::siliconOnly, "siliconOnly"},
}};
static_assert(isComplete(kMacBuildWords, MacBuild::siliconOnly));

constexpr EnumTable<MacRatings, 3> kMacRatingsWords{{
    {MacRatings::shown, "shown"},
    {MacRatings::zero, "zero"},
    {MacRatings::absent, "absent"},
}};
static_assert(isComplete(kMacRatingsWords, MacRatings::absent));

template <typename Enum, std::size_t N>
Enum caseIn(const EnumTable<Enum, N>& table, std::string_view word) {
  const auto value = valueOf(table, word);
  if (!value) throw DecodingError(fmt::format("\"{}\" is none of the words for that", word));
  return *value;
}

std::vector<std::string> wordsIn(JsonElement element, std::string_view key) {
  std::vector<std::string> words;
  readElement(element, key, words);
  return words;
}

}  // namespace

// Found by the types that they read, so not hidden in the namespace without a name.

static void readElement(JsonElement element, std::string_view key, MacBuild& into) {
  std::string word;
  readElement(element, key, word);
  into = caseIn(kMacBuildWords, word);
}

static void readElement(JsonElement element, std::string_view key, MacRatings& into) {
  std::string word;
  readElement(element, key, word);
  into = caseIn(kMacRatingsWords, word);
}

static void readElement(JsonElement element, std::string_view key, Machines& into) {
  into = {};
  for (const std::string& word : wordsIn(element, key)) {
    const Shelf shelf = caseIn(kShelfWords, word);
    if (shelf == Shelf::mac) into.mac = true;
    if (shelf == Shelf::iphone) into.iphone = true;
    if (shelf == Shelf::ipad) into.ipad = true;
  }
}

static void readElement(JsonElement element, std::string_view key, SamplePurchase& into) {
  DataObject object(element, std::string(key));
  const auto name = object.needed<std::string>("name");
  const int usCents = object.needed<int>("usCents");
  std::string period;
  object.take("period", period);
  into = period.empty() ? boughtOnce(name, usCents) : subscription(name, usCents, period);
  object.take("familyShareable", into.familyShareable);
  object.requireNoOthers();
}

namespace {

// What an app's object may say, beside what it must; the rest is as in a new sketch.
constexpr std::tuple kFacts{
    std::pair("machines", &AppSketch::machines),
    std::pair("usCents", &AppSketch::usCents),
    std::pair("stars", &AppSketch::stars),
    std::pair("ratings", &AppSketch::ratings),
    std::pair("macRatings", &AppSketch::macRatings),
    std::pair("version", &AppSketch::version),
    std::pair("updatedDaysAgo", &AppSketch::updated),
    std::pair("daysBetweenVersions", &AppSketch::every),
    std::pair("firstDaysAgo", &AppSketch::first),
    std::pair("bytes", &AppSketch::bytes),
    std::pair("minimumMac", &AppSketch::minimumMac),
    std::pair("minimumIos", &AppSketch::minimumIos),
    std::pair("macBuild", &AppSketch::macBuild),
    std::pair("purchases", &AppSketch::purchases),
    std::pair("languages", &AppSketch::languages),
    std::pair("storefronts", &AppSketch::storefronts),
    std::pair("hidesPrice", &AppSketch::hidesPrice),
    std::pair("contentRating", &AppSketch::contentRating),
    std::pair("tagline", &AppSketch::tagline),
    std::pair("badge", &AppSketch::badge),
    std::pair("about", &AppSketch::about),
    std::pair("notes", &AppSketch::notes),
};

Maker makerIn(JsonElement element, std::string_view name) {
  DataObject object(element, std::string(name));
  Maker maker;
  maker.id = object.needed<std::int64_t>("id");
  maker.seller = object.needed<std::string>("seller");
  maker.artist = object.needed<std::string>("artist");
  object.take("site", maker.site);
  object.requireNoOthers();
  return maker;
}

Makers makersIn(JsonElement element) {
  if (!element.is_object()) throw DecodingError("apps.json: \"makers\" is no object");
  Makers makers;
  for (const auto& [name, maker] : element.get_object()) makers.emplace(name, makerIn(maker, name));
  return makers;
}

const Maker& makerOf(DataObject& object, const Makers& makers) {
  const auto maker = makers.find(object.needed<std::string>("maker"));
  if (maker == makers.end()) object.fail("there is no such maker");
  return maker->second;
}

std::string nameIn(JsonElement app) {
  if (!app.is_object()) return "An app";
  return memberOf<std::string>(app.get_object(), "name").value_or("An app without a name");
}

AppSketch appIn(JsonElement element, const Makers& makers) {
  DataObject object(element, nameIn(element));
  AppSketch app;
  app.id = object.needed<std::int64_t>("id");
  app.name = object.needed<std::string>("name");
  app.bundleId = object.needed<std::string>("bundleId");
  app.maker = makerOf(object, makers);
  app.genres = object.needed<std::vector<int>>("genres");
  std::apply([&](const auto&... facts) { (object.take(facts.first, app.*facts.second), ...); },
             kFacts);
  object.requireNoOthers();
  return app;
}

}  // namespace

std::vector<AppSketch> readApps(const std::string& json) {
  const JsonDocument document(json);
  DataObject file(document.root(), "apps.json");
  const Makers makers = makersIn(file.element("makers"));
  std::vector<AppSketch> apps;
  for (const JsonElement app : file.list("apps")) apps.push_back(appIn(app, makers));
  file.requireNoOthers();
  return apps;
}

std::vector<AppSketch> handWrittenApps() { return readApps(data::apps()); }

}  // namespace quillet::sandbox
