// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/navigator.h"

#include <utility>

namespace quillet {

namespace {

constexpr std::size_t kMostPlaces = 100;

}  // namespace

Navigator::Navigator(Place first) { places_.push_back(std::move(first)); }

void Navigator::go(Place to) {
  if (to == here()) return;
  places_.resize(at_ + 1);
  places_.push_back(std::move(to));
  if (places_.size() > kMostPlaces) places_.pop_front();
  at_ = places_.size() - 1;
  arrive();
}

void Navigator::replace(Place with) {
  places_[at_] = std::move(with);
  Q_EMIT moved();
}

void Navigator::back() {
  if (!canGoBack()) return;
  --at_;
  arrive();
}

void Navigator::forward() {
  if (!canGoForward()) return;
  ++at_;
  arrive();
}

void Navigator::arrive() {
  const Place here = this->here();  // whoever hears of it may go on elsewhere
  Q_EMIT arrived(here);
  Q_EMIT moved();
}

}  // namespace quillet
