// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/search_guide.h"

#include "desktop/models/new_search.h"

namespace quillet {

SearchGuide::SearchGuide(Guide& guide, const Settings& settings,
                         std::function<std::string()> storefront)
    : guide_(guide), settings_(settings), storefront_(std::move(storefront)) {}

const StoreQuery* SearchGuide::shown() const {
  if (guide_.here().section != SectionId::search) return nullptr;
  return std::get_if<StoreQuery>(&guide_.here().what);
}

bool SearchGuide::shows(const StoreQuery& query) const {
  const StoreQuery* shown = this->shown();
  return shown != nullptr && isSameSearch(*shown, query, storefront_());
}

void SearchGuide::goTo(StoreQuery query) {
  if (!canSearch()) return;
  if (shows(query)) {
    guide_.closePage();
  } else {
    guide_.goAsLeft(searchPlace(std::move(query), storefront_()));
  }
  guide_.section()->renew();
}

void SearchGuide::searchFor(std::string text, std::optional<std::string> country) {
  StoreQuery query = newSearch(settings_, std::move(text));
  query.request.country = std::move(country);
  goTo(std::move(query));
  if (canSearch()) guide_.section()->takeFocus();
}

bool SearchGuide::holds(const SearchPreset& preset) const {
  const StoreQuery* shown = this->shown();
  return shown != nullptr && quillet::holds(shown->request.filters, preset);
}

void SearchGuide::toggle(const SearchPreset& preset) {
  if (guide_.here().section != SectionId::search) {
    guide_.goTo(SectionId::search);
    if (holds(preset)) return;
  }
  const StoreQuery* before = shown();
  StoreQuery query = before == nullptr ? newSearch(settings_) : *before;
  query.request.filters = toggled(query.request.filters, preset);
  Place place = guide_.here();
  place.what = std::move(query);
  guide_.change(std::move(place));
}

}  // namespace quillet
