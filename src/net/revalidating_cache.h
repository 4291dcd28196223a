// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QNetworkDiskCache>
#include <filesystem>

namespace quillet {

/// A disk cache whose every entry has expired, so that Qt asks the server with the entry's
/// validators and uses the kept body only after a 304.
class RevalidatingCache final : public QNetworkDiskCache {
 public:
  /// A directory that cannot be made or written to leaves the cache empty.
  explicit RevalidatingCache(const std::filesystem::path& directory, QObject* parent = nullptr);

  QNetworkCacheMetaData metaData(const QUrl& url) override;
  QIODevice* prepare(const QNetworkCacheMetaData& answer) override;
};

}  // namespace quillet
