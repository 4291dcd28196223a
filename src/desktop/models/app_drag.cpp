// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/app_drag.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMimeData>
#include <QUrl>

#include "base/store_links.h"

namespace quillet {

namespace {

const QString kFormat = QStringLiteral("application/x-quillet-app+json");
// What other programs drag may say anything.
constexpr qsizetype kMostBytes = 1 << 20;

NamedKey appOf(const QJsonObject& json) {
  return {{json[QLatin1String("trackId")].toInteger(),
           json[QLatin1String("country")].toString().toStdString()},
          json[QLatin1String("name")].toString()};
}

}  // namespace

std::unique_ptr<QMimeData> draggedApps(const std::vector<NamedKey>& apps) {
  QJsonArray json;
  for (const auto& [app, name] : apps) {
    json.append(QJsonObject{{QStringLiteral("trackId"), static_cast<qint64>(app.trackId)},
                            {QStringLiteral("country"), QString::fromStdString(app.country)},
                            {QStringLiteral("name"), name}});
  }
  std::unique_ptr<QMimeData> data = appLinks(apps);
  data->setData(kFormat, QJsonDocument(json).toJson(QJsonDocument::Compact));
  return data;
}

std::vector<NamedKey> appsIn(const QMimeData& data) {
  const QByteArray bytes = data.data(kFormat);
  std::vector<NamedKey> apps;
  if (bytes.size() > kMostBytes) return apps;
  for (const QJsonValue& each : QJsonDocument::fromJson(bytes).array()) {
    NamedKey app = appOf(each.toObject());
    if (app.app.trackId > 0 && !app.app.country.empty()) apps.push_back(std::move(app));
  }
  return apps;
}

std::optional<std::filesystem::path> libraryFileIn(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  if (urls.size() != 1 || !urls.front().isLocalFile()) return std::nullopt;
  const QString file = urls.front().toLocalFile();
  if (!file.endsWith(QStringLiteral(".json"), Qt::CaseInsensitive)) return std::nullopt;
  return std::filesystem::path(QFile::encodeName(file).toStdString());
}

std::optional<std::string> storeLinkIn(const QMimeData& data) {
  if (data.hasFormat(kFormat)) return std::nullopt;
  for (const QUrl& url : data.urls()) {
    const std::string link = url.toString(QUrl::FullyEncoded).toStdString();
    if (trackIdInLink(link)) return link;
  }
  const std::string text = data.text().left(2048).trimmed().toStdString();
  return trackIdInLink(text) ? std::optional(text) : std::nullopt;
}

std::vector<std::filesystem::path> bundlesIn(const QMimeData& data) {
  std::vector<std::filesystem::path> bundles;
  for (const QUrl& url : data.urls()) {
    if (!url.isLocalFile()) continue;
    const QString file = url.adjusted(QUrl::StripTrailingSlash).toLocalFile();
    if (file.endsWith(QLatin1String(".app")))
      bundles.emplace_back(QFile::encodeName(file).toStdString());
  }
  return bundles;
}

}  // namespace quillet
