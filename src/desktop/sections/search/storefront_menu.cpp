// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/search/storefront_menu.h"

#include <QActionGroup>
#include <QLocale>
#include <algorithm>
#include <vector>

#include "store/records/storefronts.h"
#include "system/country_codes.h"

namespace quillet {

namespace {

struct Country {
  std::string code;
  QString name;
};

/// By name.
std::vector<Country> countries() {
  std::vector<Country> all;
  for (const std::string_view code : countryCodes())
    all.push_back({std::string(code), countryName(std::string(code))});
  std::ranges::sort(all, [](const Country& left, const Country& right) {
    return QString::localeAwareCompare(left.name, right.name) < 0;
  });
  return all;
}

}  // namespace

QString countryName(const std::string& code) {
  const QString text = QString::fromStdString(code);
  const QLocale::Territory territory = QLocale::codeToTerritory(text);
  return territory == QLocale::AnyTerritory ? text : QLocale::territoryToString(territory);
}

StorefrontMenu::StorefrontMenu(QWidget* parent) : QMenu(parent) {
  setTitle(tr("Storefront"));
  connect(this, &QMenu::aboutToShow, this, &StorefrontMenu::fill);
}

void StorefrontMenu::setChosen(const std::string& code) { chosen_ = code; }

void StorefrontMenu::fill() {
  clear();
  delete findChild<QActionGroup*>();
  auto* group = new QActionGroup(this);
  const auto add = [&](const Country& country) {
    const QString code = QString::fromStdString(country.code);
    QAction* action = group->addAction(country.name + u'\t' + code);
    action->setCheckable(true);
    action->setChecked(country.code == chosen_);
    connect(action, &QAction::triggered, this,
            [this, code = country.code] { Q_EMIT chosen(code); });
    addAction(action);
  };
  for (const std::string_view code : kTrackedStorefronts)
    add({std::string(code), countryName(std::string(code))});
  addSeparator();
  for (const Country& country : countries())
    if (std::ranges::find(kTrackedStorefronts, country.code) == kTrackedStorefronts.end())
      add(country);
}

}  // namespace quillet
