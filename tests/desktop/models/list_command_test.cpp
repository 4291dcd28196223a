// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/list_command.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

Place placeIn(SectionId section) {
  Place place;
  place.section = section;
  return place;
}

Place searching(const std::string& text, std::optional<std::string> country = {}) {
  Place place = placeIn(SectionId::search);
  StoreQuery query;
  query.request.query = text;
  query.request.country = std::move(country);
  query.request.filters.price = PriceFilter::paid;
  place.what = query;
  return place;
}

Place charting(std::string country) {
  Place place = placeIn(SectionId::charts);
  StoreQuery query;
  query.chart = ShownChart{ChartType::topGrossing, 6007};
  query.request.platform = Platform::ipad;
  query.request.country = std::move(country);
  query.request.filters.genre = "Games";
  query.request.filters.minRating = 4;
  place.what = query;
  return place;
}

Place dealing(std::optional<Platform> platform, double drop) {
  Place place = placeIn(SectionId::deals);
  place.what = DealPlace{"de", platform, drop};
  return place;
}

Place owning() {
  Place place = placeIn(SectionId::myApps);
  place.rows.chips = {"abandoned", "updates"};
  return place;
}

TEST(ListCommand, ListsWhatASectionShowsWhateverItIsCalled) {
  const ListNames names{"us", "-it's; rm", {{{2, "de"}}, {{1, "de"}}}, "de"};
  const ListNames nothing{"gb", {}, {{{1, "gb"}}}, "gb"};
  const struct {
    Place place;
    ListNames names;
    const char* command;  ///< null for none
  } rows[] = {
      {searching("a 'b"), names, R"(quillet search "a 'b" --country us --paid --json)"},
      {searching("", "fr"), names, nullptr},
      {charting("$(x)"), names,
       R"q(quillet charts --chart top-grossing --genre 6007 --platform ipad --country "\$(x)" )q"
       "--min-rating 4.0 --json"},
      {placeIn(SectionId::charts), names, "quillet charts --country us --json"},
      {dealing(Platform::mac, 12.5), names,
       "quillet deals --country de --platform mac --min-drop 12.5 --json"},
      {dealing(Platform::ipad, 0), names, "quillet deals --country de --platform iphone --json"},
      {dealing({}, 0), names, "quillet deals --country de --json"},
      {placeIn(SectionId::watchlist), names, "quillet watchlist --json"},
      {placeIn(SectionId::collections), names, R"(quillet collections "it's; rm" --json)"},
      {placeIn(SectionId::collections), nothing, "quillet collections --json"},
      {placeIn(SectionId::myApps), names, "quillet my-apps --json"},
      {owning(), names, "quillet my-apps --outdated --json"},
      {placeIn(SectionId::compare), names, "quillet compare 2 1 --country de --json"},
      {placeIn(SectionId::compare), nothing, nullptr},
      {placeIn(SectionId::alerts), names, nullptr},
      {placeIn(SectionId::history), names, nullptr},
  };
  for (const auto& [place, known, command] : rows) {
    const auto text = listCommand(place, known);
    EXPECT_EQ(text.value_or(QStringLiteral("none")).toStdString(), command ? command : "none");
  }
}

}  // namespace
}  // namespace quillet
