// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/app_links.h"

#include <fmt/format.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>
#include <algorithm>
#include <set>

#include "base/store_links.h"
#include "base/text.h"
#include "desktop/models/row_filter_model.h"

namespace quillet {

namespace {

/// A storefront is two letters; whatever else a library holds is no shell's to read.
std::string argumentOf(const std::string& country) {
  const bool isPlain =
      std::ranges::all_of(country, [](char letter) { return letter >= 'a' && letter <= 'z'; });
  return isPlain && !country.empty() ? country : shellQuoted(country);
}

QString linkOf(const AppKey& app) {
  return QString::fromStdString(appPageLink(app.trackId, app.country));
}

/// The names of apps as the list shows them.
std::map<AppKey, QString> namesOf(const std::vector<AppKey>& apps, const RowFilterModel* rows) {
  const std::set<AppKey> wanted(apps.begin(), apps.end());
  std::map<AppKey, QString> names;
  for (int i = 0; rows != nullptr && i < rows->rowCount() && names.size() < wanted.size(); ++i) {
    const AppRow& row = rows->at(i);
    if (wanted.contains(row.key.app)) names.emplace(row.key.app, row.name);
  }
  return names;
}

}  // namespace

AppLinks::AppLinks(const Guide& guide, Prompts& prompts) : guide_(guide), prompts_(prompts) {}

std::vector<AppKey> AppLinks::apps() const {
  return guide_.section() == nullptr ? std::vector<AppKey>() : guide_.section()->chosen();
}

void AppLinks::copyLinks() const {
  const std::vector<AppKey> chosen = apps();
  const std::map<AppKey, QString> names = namesOf(chosen, guide_.section()->rows());
  QStringList lines;
  QList<QUrl> links;
  for (const AppKey& app : chosen) {
    const auto name = names.find(app);
    if (name != names.end()) lines.append(name->second.simplified());
    lines.append(linkOf(app));
    links.append(QUrl(linkOf(app)));
  }
  auto* data = new QMimeData;
  data->setText(lines.join(u'\n'));
  data->setUrls(links);
  QGuiApplication::clipboard()->setMimeData(data);
}

void AppLinks::copyCommands() const {
  QStringList lines;
  for (const AppKey& app : apps()) {
    lines.append(QString::fromStdString(
        fmt::format("quillet info {} --country {}", app.trackId, argumentOf(app.country))));
  }
  QGuiApplication::clipboard()->setText(lines.join(u'\n'));
}

void AppLinks::openInStore() const {
  const std::vector<AppKey> chosen = apps();
  if (chosen.size() == 1)
    prompts_.openLink(appPageLink(chosen.front().trackId, chosen.front().country));
}

void AppLinks::openWebsite(const std::string& address) const { prompts_.openLink(address); }

}  // namespace quillet
