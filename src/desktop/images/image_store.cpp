// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/images/image_store.h"

#include <algorithm>

#include "base/errors.h"
#include "base/urls.h"
#include "desktop/images/image_decoder.h"
#include "desktop/images/image_limits.h"
#include "net/worker.h"
#include "store/records/sized_picture.h"

namespace quillet {

namespace {

constexpr int kOk = 200;
constexpr int kNotFound = 404;

HttpRequest requestFor(std::string address) {
  HttpRequest request;
  request.url = std::move(address);
  request.cachePolicy = CachePolicy::ignore;  // pictures never change; they are kept as files
  request.bodyLimit = kPictureBytes;
  return request;
}

int bytesOf(const QPixmap& pixmap) { return 4 * pixmap.width() * pixmap.height(); }

}  // namespace

ImageStore::ImageStore(HttpClient& http, Clock& clock, std::filesystem::path folder)
    : http_(http),
      clock_(clock),
      files_(std::move(folder)),
      artwork_(kArtworkMemory),
      large_(kLargePictureMemory) {
  threads_.setMaxThreadCount(kPictureThreads);
}

ImageStore::~ImageStore() {
  auto loading = std::exchange(loading_, {});
  for (auto& [key, stop] : loading) stop.requestStop();
  threads_.waitForDone();
}

const QCache<ImageKey, QPixmap>& ImageStore::cacheOf(const ImageKey& key) const {
  return key.pixels > kLargestArtwork ? large_ : artwork_;
}

const QPixmap* ImageStore::find(const ImageKey& key) const { return cacheOf(key).object(key); }

void ImageStore::want(const QObject* view, std::vector<ImageKey> keys) {
  const auto known = std::ranges::find(wanted_, view, &decltype(wanted_)::value_type::first);
  if (known != wanted_.end()) {
    known->second = std::move(keys);
  } else {
    wanted_.emplace_back(view, std::move(keys));
    connect(view, &QObject::destroyed, this, [this, view] { forget(view); });
  }
  stopUnwanted();
  startWanted();
}

Task<> ImageStore::sweep(std::uintmax_t limit) {
  auto job = [files = files_, limit] { files.sweep(limit); };
  co_await onPool(&threads_, std::move(job));
}

Task<std::uintmax_t> ImageStore::size() {
  auto job = [files = files_] { return files.size(); };
  co_return co_await onPool(&threads_, std::move(job));
}

void ImageStore::forget(const QObject* view) {
  std::erase_if(wanted_, [view](const auto& each) { return each.first == view; });
  stopUnwanted();
}

bool ImageStore::isWanted(const ImageKey& key) const {
  return std::ranges::any_of(wanted_, [&](const auto& each) {
    return std::ranges::find(each.second, key) != each.second.end();
  });
}

bool ImageStore::mayBeAsked(const ImageKey& key) const {
  // Whatever a record says, no file of this machine is read.
  if (!isWebAddress(key.address) || cacheOf(key).contains(key) || loading_.contains(key)) {
    return false;
  }
  const auto retry = retryAt_.find(key);
  return retry == retryAt_.end() || retry->second <= clock_.monotonic();
}

void ImageStore::stopUnwanted() {
  for (auto& [key, stop] : loading_) {
    if (!isWanted(key)) stop.requestStop();
  }
}

void ImageStore::startWanted() {
  for (const auto& [view, keys] : wanted_) {
    for (const ImageKey& key : keys) {
      if (loading_.size() >= kPictureRequests) return;
      if (!mayBeAsked(key)) continue;
      const StopToken stop = loading_[key].token();
      detach(load(this, key, stop), "a picture");
    }
  }
}

Task<> ImageStore::load(Self store, ImageKey key, StopToken stop) {
  std::chrono::milliseconds retry = kPictureRetry;
  QImage image;
  try {
    image = co_await pictureOf(store, key, stop);
  } catch (const NetworkError&) {
    retry = kPictureServerRetry;
  }
  if (store.isNull()) co_return;
  store->loading_.erase(key);
  if (!image.isNull()) {
    store->keep(key, image);
  } else if (!stop.stopRequested()) {
    const auto now = store->clock_.monotonic();
    std::erase_if(store->retryAt_, [now](const auto& each) { return each.second <= now; });
    store->retryAt_[key] = now + retry;
  }
  store->startWanted();
}

Task<QImage> ImageStore::pictureOf(Self store, ImageKey key, StopToken stop) {
  const std::string name = sizedAddress(key.address, key.pixels);
  auto find = [files = store->files_, name, pixels = key.pixels] {
    const auto bytes = files.find(name);
    return bytes ? decodePicture(*bytes, pixels) : QImage();
  };
  QImage kept = co_await onPool(&store->threads_, std::move(find));
  if (store.isNull() || !kept.isNull()) co_return kept;
  std::string bytes = co_await fetch(&store->http_, name, key.address, stop);
  if (store.isNull()) co_return QImage();
  auto decode = [files = store->files_, name, bytes = std::move(bytes), pixels = key.pixels] {
    QImage image = decodePicture(bytes, pixels);
    if (!image.isNull()) files.keep(name, bytes);
    return image;
  };
  co_return co_await onPool(&store->threads_, std::move(decode));
}

Task<std::string> ImageStore::original(std::string address, StopToken stop) {
  return readOriginal(this, std::move(address), std::move(stop));
}

Task<std::string> ImageStore::readOriginal(Self store, std::string address, StopToken stop) {
  if (!isWebAddress(address)) co_return std::string();
  const std::string name = fullSizeAddress(address);
  auto find = [files = store->files_, name] {
    std::string bytes = files.find(name).value_or(std::string());
    return pictureEnding(bytes).empty() ? std::string() : bytes;
  };
  std::string kept = co_await onPool(&store->threads_, std::move(find));
  if (store.isNull() || !kept.empty()) co_return kept;
  std::string bytes = co_await fetch(&store->http_, name, std::move(address), std::move(stop));
  if (store.isNull() || pictureEnding(bytes).empty()) co_return std::string();
  auto keep = [files = store->files_, name, bytes] { files.keep(name, bytes); };
  co_await onPool(&store->threads_, std::move(keep));
  co_return bytes;
}

/// Empty where the server does not have it. Throws NetworkError.
Task<std::string> ImageStore::fetch(HttpClient* http, std::string sized, std::string address,
                                    StopToken stop) {
  HttpResponse response = co_await http->get(requestFor(sized), stop);
  if (response.status == kNotFound && sized != address) {
    response = co_await http->get(requestFor(std::move(address)), stop);
  }
  if (response.status != kOk) co_return std::string();
  std::string body = std::move(response.body);
  co_return body;
}

void ImageStore::keep(const ImageKey& key, const QImage& image) {
  auto pixmap = std::make_unique<QPixmap>(QPixmap::fromImage(image));
  const int bytes = bytesOf(*pixmap);
  auto& cache = key.pixels > kLargestArtwork ? large_ : artwork_;
  cache.insert(key, pixmap.release(), bytes);
  Q_EMIT arrived(key);
}

}  // namespace quillet
