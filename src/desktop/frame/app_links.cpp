// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/app_links.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "base/store_links.h"

namespace quillet {

AppLinks::AppLinks(const Guide& guide, Prompts& prompts) : guide_(guide), prompts_(prompts) {}

std::vector<AppKey> AppLinks::apps() const {
  return guide_.section() == nullptr ? std::vector<AppKey>() : guide_.section()->chosen();
}

std::vector<NamedKey> AppLinks::named() const {
  return guide_.section() == nullptr ? std::vector<NamedKey>() : guide_.section()->named();
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
