// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>

#include "desktop/frame/guide.h"
#include "desktop/services/library_gateway.h"
#include "net/clock.h"

namespace quillet {

/// Marks an alert as read when somebody rested on its page. In a list of unread ones alone that
/// waits until they go on, for the row leaves the list with its mark.
class AlertReader : public QObject {
  Q_OBJECT

 public:
  /// All outlive the reader. `page`: where apps' pages are seen.
  AlertReader(LibraryGateway& library, Guide& guide, const QWidget& page, Clock& clock);
  ~AlertReader() override;

 private:
  void look();
  void take(const std::optional<RowKey>& alert);
  [[nodiscard]] std::optional<RowKey> alertInSight() const;
  [[nodiscard]] bool isUnread(const RowKey& alert) const;
  static Task<> rest(QPointer<AlertReader> reader, StopToken stop);
  void mark();

  LibraryGateway& library_;
  Guide& guide_;
  const QWidget& page_;
  Clock& clock_;
  std::optional<RowKey> alert_;  ///< whose page is seen
  bool isOwed_ = false;          ///< it is to be marked when it is left
  StopSource resting_;
};

}  // namespace quillet
