// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>

#include "desktop/frame/guide.h"
#include "desktop/services/library_gateway.h"

namespace quillet {

/// Leads from one unread alert to the next, the newest first, and from the last to the first.
class UnreadFinder : public QObject {
  Q_OBJECT

 public:
  /// Both outlive the finder.
  UnreadFinder(LibraryGateway& library, Guide& guide);

  [[nodiscard]] std::int64_t count() const { return count_; }
  void setCount(std::int64_t unread) { count_ = unread; }
  void goToNext();

 private:
  static Task<> findNext(QPointer<UnreadFinder> finder);

  LibraryGateway& library_;
  Guide& guide_;
  std::int64_t count_ = 0;
};

}  // namespace quillet
