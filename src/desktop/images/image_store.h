// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCache>
#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QThreadPool>
#include <map>
#include <utility>
#include <vector>

#include "desktop/images/image_files.h"
#include "desktop/images/image_key.h"
#include "net/clock.h"
#include "net/http_client.h"

namespace quillet {

/// The pictures that views show. A view says what it wants to show now; what is at hand it finds at
/// once, the rest arrives, and what it no longer wants is asked for no more.
///
/// An object of the event-loop thread. The client and the clock outlive it.
class ImageStore : public QObject {
  Q_OBJECT

 public:
  /// `folder` keeps what came over the network; empty keeps nothing.
  ImageStore(HttpClient& http, Clock& clock, std::filesystem::path folder);
  ~ImageStore() override;

  /// Null until it came, and for what is no picture. Valid until control returns to the event loop.
  [[nodiscard]] const QPixmap* find(const ImageKey& key) const;

  /// Replaces what the view wanted before; the first are asked for first. Forgotten with the view.
  void want(const QObject* view, std::vector<ImageKey> keys);

  /// The bytes of the picture in its largest size, as they came, from the disk or the network.
  /// Empty where the server does not have it, and for what is no picture. Throws NetworkError.
  [[nodiscard]] Task<std::string> original(std::string address, StopToken stop);

  /// Whether nothing that views want is under way.
  [[nodiscard]] bool isIdle() const { return loading_.empty(); }

  /// Removes what was not used for longest from the disk until at most `limit` bytes are left.
  Task<> sweep(std::uintmax_t limit);
  /// How many bytes are kept on the disk.
  [[nodiscard]] Task<std::uintmax_t> size();

 Q_SIGNALS:
  void arrived(const quillet::ImageKey& key);

 private:
  using Self = QPointer<ImageStore>;

  static Task<> load(Self store, ImageKey key, StopToken stop);
  static Task<QImage> pictureOf(Self store, ImageKey key, StopToken stop);
  static Task<std::string> readOriginal(Self store, std::string address, StopToken stop);
  static Task<std::string> fetch(HttpClient* http, std::string sized, std::string address,
                                 StopToken stop);

  [[nodiscard]] const QCache<ImageKey, QPixmap>& cacheOf(const ImageKey& key) const;
  void forget(const QObject* view);
  [[nodiscard]] bool isWanted(const ImageKey& key) const;
  [[nodiscard]] bool mayBeAsked(const ImageKey& key) const;
  void stopUnwanted();
  void startWanted();
  void keep(const ImageKey& key, const QImage& image);

  HttpClient& http_;
  Clock& clock_;
  ImageFiles files_;
  QThreadPool threads_;
  QCache<ImageKey, QPixmap> artwork_;
  QCache<ImageKey, QPixmap> large_;
  std::vector<std::pair<const QObject*, std::vector<ImageKey>>> wanted_;  // the latest view last
  std::map<ImageKey, StopSource> loading_;
  std::map<ImageKey, Clock::Monotonic> retryAt_;
};

}  // namespace quillet
