// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/app_texts.h"

#include <fmt/format.h>

#include <QMimeData>
#include <QUrl>
#include <algorithm>

#include "base/store_links.h"
#include "base/text.h"

namespace quillet {

namespace {

/// A storefront is two letters; whatever else a library holds is no shell's to read.
std::string argumentOf(const std::string& country) {
  const bool isPlain =
      std::ranges::all_of(country, [](char letter) { return letter >= 'a' && letter <= 'z'; });
  return isPlain && !country.empty() ? country : shellQuoted(country);
}

}  // namespace

std::unique_ptr<QMimeData> appLinks(const std::vector<NamedKey>& apps) {
  QStringList lines;
  QList<QUrl> links;
  for (const auto& [app, name] : apps) {
    const QString link = QString::fromStdString(appPageLink(app.trackId, app.country));
    if (!name.isEmpty()) lines.append(name.simplified());
    lines.append(link);
    links.append(QUrl(link));
  }
  auto data = std::make_unique<QMimeData>();
  data->setText(lines.join(u'\n'));
  data->setUrls(links);
  return data;
}

QString infoCommand(const AppKey& app) {
  return QString::fromStdString(
      fmt::format("quillet info {} --country {}", app.trackId, argumentOf(app.country)));
}

}  // namespace quillet
