// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/search/storefront_menu.h"

#include <QActionGroup>
#include <QKeyEvent>
#include <algorithm>
#include <vector>

#include "store/records/storefronts.h"
#include "system/country_codes.h"
#include "system/country_names.h"

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
    all.push_back({std::string(code), storefrontName(std::string(code))});
  std::ranges::sort(all, [](const Country& left, const Country& right) {
    return QString::localeAwareCompare(left.name, right.name) < 0;
  });
  return all;
}

}  // namespace

QString storefrontName(const std::string& code) {
  // As all texts of the windows.
  static const std::string kLanguage = "en";
  if (!isCountryCode(code)) return QString::fromStdString(code);
  return QString::fromStdString(countryName(code, kLanguage));
}

StorefrontMenu::StorefrontMenu(QWidget* parent) : QMenu(parent) {
  setTitle(tr("Storefront"));
  connect(this, &QMenu::aboutToShow, this, &StorefrontMenu::fill);
}

void StorefrontMenu::setChosen(const std::string& code) { chosen_ = code; }

/// Letters that follow one another lead to a name; after a rest they begin another.
void StorefrontMenu::keyPressEvent(QKeyEvent* event) {
  constexpr qint64 kRest = 1000;  // ms
  if (letter_.isValid() && letter_.hasExpired(kRest)) typed_.clear();
  const QString text = event->text();
  const bool isLetter = text.size() == 1 && text[0].isPrint();
  const bool isPlain = !event->modifiers().testFlag(Qt::ControlModifier) &&
                       !event->modifiers().testFlag(Qt::AltModifier);
  // A blank alone chooses what is current.
  if (!isPlain || !isLetter || (typed_.isEmpty() && text[0].isSpace())) {
    QMenu::keyPressEvent(event);
    return;
  }
  typed_ += text;
  letter_.start();
  goToTyped();
}

void StorefrontMenu::goToTyped() {
  for (QAction* action : actions()) {
    if (!action->text().startsWith(typed_, Qt::CaseInsensitive)) continue;
    setActiveAction(action);
    return;
  }
}

void StorefrontMenu::fill() {
  typed_.clear();
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
    add({std::string(code), storefrontName(std::string(code))});
  addSeparator();
  for (const Country& country : countries())
    if (std::ranges::find(kTrackedStorefronts, country.code) == kTrackedStorefronts.end())
      add(country);
}

}  // namespace quillet
