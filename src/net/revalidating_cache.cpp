// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/revalidating_cache.h"

#include <QDateTime>
#include <QString>
#include <algorithm>

namespace quillet {

namespace {

bool isNamed(const QNetworkCacheMetaData::RawHeader& header, const char* name) {
  return header.first.compare(name, Qt::CaseInsensitive) == 0;
}

bool hasValidator(const QNetworkCacheMetaData& answer) {
  const auto headers = answer.rawHeaders();
  return answer.lastModified().isValid() ||
         std::any_of(headers.begin(), headers.end(),
                     [](const auto& header) { return isNamed(header, "ETag"); });
}

}  // namespace

RevalidatingCache::RevalidatingCache(const std::filesystem::path& directory, QObject* parent)
    : QNetworkDiskCache(parent) {
  setCacheDirectory(QString::fromStdU16String(directory.u16string()));
}

QNetworkCacheMetaData RevalidatingCache::metaData(const QUrl& url) {
  QNetworkCacheMetaData kept = QNetworkDiskCache::metaData(url);
  if (!kept.isValid()) return kept;
  kept.setExpirationDate(QDateTime::fromSecsSinceEpoch(0));
  // Without this word Qt passes a kept body off as the answer where the server has only an error.
  auto headers = kept.rawHeaders();
  headers.removeIf([](const auto& header) { return isNamed(header, "Cache-Control"); });
  headers.emplaceBack("Cache-Control", "must-revalidate");
  kept.setRawHeaders(headers);
  return kept;
}

QIODevice* RevalidatingCache::prepare(const QNetworkCacheMetaData& answer) {
  // What the server cannot confirm is never used again; compressing it would be the larger part of
  // a search's own work.
  return hasValidator(answer) ? QNetworkDiskCache::prepare(answer) : nullptr;
}

}  // namespace quillet
