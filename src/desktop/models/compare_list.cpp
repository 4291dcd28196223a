// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/compare_list.h"

#include <QJsonArray>
#include <algorithm>

#include "system/settings_keys.h"

namespace quillet {

namespace {

using namespace Qt::StringLiterals;

QString stateKey() { return u"compare"_s; }

QJsonObject jsonOf(const ComparedKey& key) {
  const std::string_view platform = key.platform ? textOf(kPlatformWords, *key.platform) : "";
  return {{"app"_L1, QString::number(key.app.trackId)},
          {"country"_L1, QString::fromStdString(key.app.country)},
          {"platform"_L1, QString::fromStdString(std::string(platform))}};
}

ComparedKey keyOf(const QJsonObject& json) {
  return {{json["app"_L1].toString().toLongLong(), json["country"_L1].toString().toStdString()},
          valueOf(kPlatformWords, json["platform"_L1].toString().toStdString())};
}

auto find(const std::vector<ComparedKey>& apps, const AppKey& app) {
  return std::ranges::find(apps, app, &ComparedKey::app);
}

}  // namespace

CompareList::CompareList(StateFile& state) : state_(state) {
  const QJsonObject kept = state.value(stateKey()).toObject();
  years_ = std::clamp(kept["years"_L1].toInt(years_), 1, kMostYears);
  for (const QJsonValue& each : kept["apps"_L1].toArray()) {
    const ComparedKey key = keyOf(each.toObject());
    const bool fits = apps_.size() < kMost && key.app.trackId > 0 && isTwoLetters(key.app.country);
    if (fits && !has(key.app) && (apps_.empty() || key.app.country == storefront()))
      apps_.push_back(key);
  }
}

bool CompareList::has(const AppKey& app) const { return find(apps_, app) != apps_.end(); }

std::string CompareList::storefront() const {
  return apps_.empty() ? std::string() : apps_.front().app.country;
}

CompareList::Addition CompareList::add(const ComparedKey& app) {
  if (has(app.app)) return Addition::alreadyThere;
  if (!apps_.empty() && app.app.country != storefront()) return Addition::otherStorefront;
  if (apps_.size() >= kMost) return Addition::full;
  apps_.push_back(app);
  keep();
  return Addition::added;
}

void CompareList::remove(const AppKey& app) {
  if (std::erase_if(apps_, [&](const ComparedKey& each) { return each.app == app; }) > 0) keep();
}

void CompareList::move(const AppKey& app, std::size_t to) {
  const auto found = find(apps_, app);
  if (found == apps_.end()) return;
  std::vector<ComparedKey> apps{*found};
  for (const ComparedKey& each : apps_) {
    if (each.app != app) apps.push_back(each);
  }
  const auto last = static_cast<std::ptrdiff_t>(std::min(to, apps.size() - 1));
  std::rotate(apps.begin(), apps.begin() + 1, apps.begin() + 1 + last);
  set(std::move(apps));
}

void CompareList::clear() { set({}); }

void CompareList::set(std::vector<ComparedKey> apps) {
  apps_ = std::move(apps);
  keep();
}

void CompareList::setYears(int years) {
  years_ = std::clamp(years, 1, kMostYears);
  keep();
}

void CompareList::keep() {
  QJsonArray apps;
  for (const ComparedKey& each : apps_) apps.append(jsonOf(each));
  state_.setValue(stateKey(), QJsonObject{{"apps"_L1, apps}, {"years"_L1, years_}});
  Q_EMIT changed();
}

}  // namespace quillet
