// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <cstddef>
#include <deque>

#include "desktop/models/place.h"

namespace quillet {

/// The places where the user was and is, as the pages of a browser. At most a hundred are kept.
class Navigator : public QObject {
  Q_OBJECT

 public:
  explicit Navigator(Place first);

  [[nodiscard]] const Place& here() const { return places_[at_]; }
  [[nodiscard]] bool canGoBack() const { return at_ > 0; }
  [[nodiscard]] bool canGoForward() const { return at_ + 1 < places_.size(); }
  /// Where back() leads; null where there is nothing.
  [[nodiscard]] const Place* previous() const { return canGoBack() ? &places_[at_ - 1] : nullptr; }

  /// To a new place; those ahead are forgotten. Nothing when it is this one.
  void go(Place to);
  /// The same place, seen otherwise: what back brings back. Nobody arrives.
  void replace(Place with);
  void back();
  void forward();

 Q_SIGNALS:
  void arrived(const quillet::Place& here);
  /// After arrived() and after replace().
  void moved();

 private:
  void arrive();

  std::deque<Place> places_;
  std::size_t at_ = 0;
};

}  // namespace quillet
