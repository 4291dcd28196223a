// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/images/original_picture.h"

#include <utility>

#include "base/errors.h"
#include "desktop/images/image_decoder.h"
#include "desktop/images/image_limits.h"
#include "desktop/images/image_store.h"
#include "net/worker.h"

namespace quillet {

OriginalPicture::OriginalPicture(ImageStore& images, QObject* parent)
    : QObject(parent), images_(images) {}

OriginalPicture::~OriginalPicture() {
  ++generation_;
  stop_.requestStop();
}

void OriginalPicture::show(const std::string& address) {
  if (address == address_ && state_ != State::failed) return;
  address_ = address;
  begin();
}

void OriginalPicture::tryAgain() {
  if (state_ == State::failed) begin();
}

void OriginalPicture::begin() {
  ++generation_;
  std::exchange(stop_, StopSource()).requestStop();
  bytes_ = {};
  image_ = {};
  state_ = address_.empty() ? State::none : State::loading;
  if (state_ == State::loading) detach(load(this, generation_), "a screenshot");
  Q_EMIT changed();
}

Task<> OriginalPicture::load(QPointer<OriginalPicture> picture, int generation) {
  Loaded loaded;
  try {
    loaded = co_await read(&picture->images_, picture->address_, picture->stop_.token());
  } catch (const NetworkError&) {
    loaded = {};
  }
  if (picture && picture->generation_ == generation) picture->take(std::move(loaded));
}

Task<OriginalPicture::Loaded> OriginalPicture::read(ImageStore* images, std::string address,
                                                    StopToken stop) {
  Loaded loaded;
  loaded.bytes = co_await images->original(std::move(address), stop);
  auto decode = [bytes = loaded.bytes] { return decodePicture(bytes, kLargestPicture); };
  if (!loaded.bytes.empty()) loaded.image = co_await onWorker(std::move(decode), stop);
  co_return loaded;
}

void OriginalPicture::take(Loaded loaded) {
  state_ = loaded.image.isNull() ? State::failed : State::ready;
  if (state_ == State::ready) {
    bytes_ = std::move(loaded.bytes);
    image_ = std::move(loaded.image);
  }
  Q_EMIT changed();
}

}  // namespace quillet
