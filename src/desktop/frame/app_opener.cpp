// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/app_opener.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/store_links.h"
#include "base/text.h"
#include "desktop/frame/listed_apps.h"
#include "library/alerts.h"

namespace quillet {

AppOpener::AppOpener(LibraryGateway& library, Guide& guide, SearchGuide& search, Snackbar& snackbar,
                     std::function<std::string()> storefront)
    : library_(library),
      guide_(guide),
      search_(search),
      snackbar_(snackbar),
      storefront_(std::move(storefront)) {}

void AppOpener::open(const std::string& text) {
  const auto linked = trackIdInLink(text);
  const auto trackId = trackIdIn(linked.value_or(text));
  if (trackId) {
    detach(find(this, {text, *trackId, storefrontInLink(text)}), "An app to open");
  } else if (isBundleId(text) && search_.canSearch()) {
    search_.searchFor(text);
  } else {
    snackbar_.say(tr("That is no link to an app."));
  }
}

void AppOpener::openAlertOf(std::int64_t trackId) { detach(findAlert(this, trackId), "An alert"); }

Task<> AppOpener::find(QPointer<AppOpener> opener, Wanted wanted) {
  const std::string preferred = opener->storefront_();
  std::optional<ListedApp> listed =
      co_await opener->library_.read(findListed, wanted.trackId, wanted.country, preferred);
  if (!listed && wanted.country && opener) {
    // The same app of another storefront is nearer than nothing.
    const std::optional<std::string> any;
    listed = co_await opener->library_.read(findListed, wanted.trackId, any, preferred);
  }
  if (!opener) co_return;
  if (!listed && opener->search_.canSearch()) {
    opener->search_.searchFor(wanted.text, wanted.country);
  } else if (!listed) {
    opener->snackbar_.say(tr("This app is in none of your lists."));
  } else {
    Place place = placeOf(*listed);
    place.page = PageSpan::alone;
    opener->guide_.go(std::move(place));
  }
}

Task<> AppOpener::findAlert(QPointer<AppOpener> opener, std::int64_t trackId) {
  const std::optional<AlertRecord> alert = co_await opener->library_.read(newestAlertOf, trackId);
  if (!opener) co_return;
  if (!alert) {
    detach(find(opener, {std::to_string(trackId), trackId, {}}), "An app to open");
    co_return;
  }
  Place place;
  place.section = SectionId::alerts;
  place.chosen = RowKey{keyOf(*alert), alert->id};
  place.page = PageSpan::alone;
  opener->guide_.go(std::move(place));
}

}  // namespace quillet
