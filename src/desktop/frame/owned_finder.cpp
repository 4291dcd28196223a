// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/owned_finder.h"

#include <set>

#include "base/store_links.h"

namespace quillet {

std::optional<NamedApp> namedApp(const std::string& text, const std::string& country) {
  if (const auto trackId = trackIdInLink(text))
    return NamedApp{*trackId, storefrontInLink(text).value_or(country), {}};
  if (const auto trackId = trackIdIn(text)) return NamedApp{std::to_string(*trackId), country, {}};
  return isBundleId(text) ? std::optional(NamedApp{text, country, {}}) : std::nullopt;
}

OwnedFinder::OwnedFinder(LibraryGateway& library, QWidget& window,
                         std::function<std::string()> storefront)
    : ListedFinder({tr("Add to My Apps"), tr("Name, link or ID of an app"),
                    tr("Name, link to the store, or ID"), tr("Apps")},
                   library, window, storefront),
      storefront_(std::move(storefront)) {}

/// Each once, and none that is there already.
std::vector<ListedApp> OwnedFinder::offered(std::vector<ListedApp> listed) const {
  std::set<AppKey> passed;
  for (const ListedApp& each : listed) {
    if (each.section == SectionId::myApps) passed.insert(each.app);
  }
  std::erase_if(listed, [&](const ListedApp& each) { return !passed.insert(each.app).second; });
  return listed;
}

QString OwnedFinder::otherText(const QString& text) const {
  const bool isNamed = namedApp(text.toStdString(), storefront_()).has_value();
  return (isNamed ? tr("Look up %1 in the store") : tr("Search the store for “%1”")).arg(text);
}

void OwnedFinder::take(const ListedApp& listed) { Q_EMIT chosen(listed); }

void OwnedFinder::takeOther(const QString& text) {
  if (const auto app = namedApp(text.toStdString(), storefront_())) {
    Q_EMIT named(*app);
  } else {
    Q_EMIT searched(text);
  }
}

}  // namespace quillet
