// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/revalidating_cache.h"

#include <QDateTime>
#include <QString>
#include <algorithm>

namespace quillet {

namespace {

bool hasValidator(const QNetworkCacheMetaData& answer) {
  const auto headers = answer.rawHeaders();
  return answer.lastModified().isValid() ||
         std::any_of(headers.begin(), headers.end(), [](const auto& header) {
           return header.first.compare("ETag", Qt::CaseInsensitive) == 0;
         });
}

}  // namespace

RevalidatingCache::RevalidatingCache(const std::filesystem::path& directory, QObject* parent)
    : QNetworkDiskCache(parent) {
  setCacheDirectory(QString::fromStdU16String(directory.u16string()));
}

QNetworkCacheMetaData RevalidatingCache::metaData(const QUrl& url) {
  QNetworkCacheMetaData kept = QNetworkDiskCache::metaData(url);
  if (kept.isValid()) kept.setExpirationDate(QDateTime::fromSecsSinceEpoch(0));
  return kept;
}

QIODevice* RevalidatingCache::prepare(const QNetworkCacheMetaData& answer) {
  // What the server cannot confirm is never used again; compressing it would be the larger part of
  // a search's own work.
  return hasValidator(answer) ? QNetworkDiskCache::prepare(answer) : nullptr;
}

}  // namespace quillet
