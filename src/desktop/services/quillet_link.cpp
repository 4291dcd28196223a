// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/quillet_link.h"

#include <QUrl>
#include <QUrlQuery>
#include <algorithm>

#include "base/store_links.h"
#include "base/text.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

constexpr std::size_t kLongestLink = 1000;

/// "app/148" and the country of the query.
std::optional<DesktopArguments> appAt(const std::string& id, const std::string& country) {
  const bool hasCountry = !country.empty();
  if (!trackIdIn(id) || (hasCountry && !isTwoLetters(country))) return {};
  return DesktopArguments{.opens =
                              hasCountry ? appPageLink(*trackIdIn(id), lowerAscii(country)) : id};
}

std::optional<DesktopArguments> sectionAt(const std::string& name) {
  const auto isPart = [](char c) { return (c >= 'a' && c <= 'z') || c == '-'; };
  if (name.empty() || name.starts_with('-') || !std::ranges::all_of(name, isPart)) return {};
  return DesktopArguments{.section = name};
}

std::optional<DesktopArguments> searchFor(const std::string& term) {
  if (trimmed(term).empty() || printable(term) != term) return {};
  return DesktopArguments{.newSearch = term};
}

}  // namespace

std::optional<DesktopArguments> readQuilletLink(const std::string& text) {
  const QUrl url(QString::fromStdString(text), QUrl::StrictMode);
  if (text.size() > kLongestLink || !url.isValid() || url.scheme() != QStringLiteral("quillet"))
    return {};
  // Some write two slashes behind a scheme; then the first word is a host's.
  const std::string path = (url.host() + url.path(QUrl::FullyDecoded)).toStdString();
  const QUrlQuery query(url);
  const auto value = [&query](const char* name) {
    return query.queryItemValue(QString::fromLatin1(name), QUrl::FullyDecoded).toStdString();
  };
  constexpr std::string_view kApp = "app/";
  constexpr std::string_view kSection = "section/";
  if (path.starts_with(kApp)) return appAt(path.substr(kApp.size()), value("country"));
  if (path.starts_with(kSection)) return sectionAt(path.substr(kSection.size()));
  if (path == "search") return searchFor(value("term"));
  return {};
}

}  // namespace quillet
