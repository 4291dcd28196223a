// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/revalidating_cache.h"

#include <QDateTime>
#include <QString>

namespace quillet {

RevalidatingCache::RevalidatingCache(const std::filesystem::path& directory, QObject* parent)
    : QNetworkDiskCache(parent) {
  setCacheDirectory(QString::fromStdU16String(directory.u16string()));
}

QNetworkCacheMetaData RevalidatingCache::metaData(const QUrl& url) {
  QNetworkCacheMetaData kept = QNetworkDiskCache::metaData(url);
  if (kept.isValid()) kept.setExpirationDate(QDateTime::fromSecsSinceEpoch(0));
  return kept;
}

}  // namespace quillet
