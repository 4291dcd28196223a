// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/app_links.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <set>

#include "base/store_links.h"
#include "desktop/models/row_filter_model.h"

namespace quillet {

namespace {

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

std::vector<NamedKey> AppLinks::named() const {
  const std::vector<AppKey> chosen = apps();
  if (chosen.empty()) return {};
  const std::map<AppKey, QString> names = namesOf(chosen, guide_.section()->rows());
  std::vector<NamedKey> named;
  for (const AppKey& app : chosen) {
    const auto name = names.find(app);
    named.push_back({app, name == names.end() ? QString() : name->second});
  }
  return named;
}

void AppLinks::copyLinks() const {
  QGuiApplication::clipboard()->setMimeData(appLinks(named()).release());
}

void AppLinks::copyCommands() const {
  QStringList lines;
  for (const AppKey& app : apps()) lines.append(infoCommand(app));
  QGuiApplication::clipboard()->setText(lines.join(u'\n'));
}

void AppLinks::openInStore() const {
  const std::vector<AppKey> chosen = apps();
  if (chosen.size() == 1)
    prompts_.openLink(appPageLink(chosen.front().trackId, chosen.front().country));
}

void AppLinks::openWebsite(const std::string& address) const { prompts_.openLink(address); }

}  // namespace quillet
