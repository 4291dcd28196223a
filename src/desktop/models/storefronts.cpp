// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/storefronts.h"

#include <QCollator>
#include <algorithm>

#include "store/records/storefronts.h"
#include "system/country_codes.h"
#include "system/country_names.h"

namespace quillet {

namespace {

// That of the windows.
const std::string kLanguage = "en";

std::vector<Storefront> madeStorefronts() {
  std::vector<Storefront> tracked;
  for (const std::string_view code : kTrackedStorefronts) {
    // Elsewhere the store may ask for another currency than the country's own.
    tracked.push_back({std::string(code), QString::fromStdString(countryName(code, kLanguage)),
                       QString::fromStdString(currencyName(code, kLanguage))});
  }
  std::vector<Storefront> others;
  for (const std::string_view code : countryCodes()) {
    if (std::ranges::find(kTrackedStorefronts, code) == kTrackedStorefronts.end())
      others.push_back(
          {std::string(code), QString::fromStdString(countryName(code, kLanguage)), {}});
  }
  const QCollator byName{QLocale(QLocale::English)};
  std::ranges::sort(others, [&byName](const Storefront& left, const Storefront& right) {
    return byName.compare(left.name, right.name) < 0;
  });
  tracked.insert(tracked.end(), others.begin(), others.end());
  return tracked;
}

/// Without accents, which nobody types.
QString folded(const QString& text) {
  QString bare;
  for (const QChar letter : text.normalized(QString::NormalizationForm_KD)) {
    if (!letter.isMark()) bare += letter == u'’' ? QChar(u'\'') : letter;
  }
  return bare.toCaseFolded().simplified();
}

}  // namespace

const std::vector<Storefront>& allStorefronts() {
  static const std::vector<Storefront> all = madeStorefronts();
  return all;
}

QString storefrontName(const std::string& code) {
  const auto found = std::ranges::find(allStorefronts(), code, &Storefront::code);
  return found == allStorefronts().end() ? QString::fromStdString(code) : found->name;
}

std::vector<Storefront> storefrontsLike(const QString& text) {
  const QString sought = folded(text);
  std::vector<Storefront> found;
  std::vector<Storefront> within;
  for (const Storefront& each : allStorefronts()) {
    const QString name = folded(each.name);
    if (name.startsWith(sought) || QString::fromStdString(each.code) == sought) {
      found.push_back(each);
    } else if (name.contains(u' ' + sought)) {
      within.push_back(each);
    }
  }
  found.insert(found.end(), within.begin(), within.end());
  return found;
}

}  // namespace quillet
