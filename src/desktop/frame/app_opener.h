// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>

#include "desktop/frame/guide.h"
#include "desktop/frame/snackbar.h"
#include "desktop/services/library_gateway.h"

namespace quillet {

/// Leads to an app that somebody outside the window names, once the library is open.
class AppOpener : public QObject {
  Q_OBJECT

 public:
  /// All outlive the opener. `storefront`: the user's.
  AppOpener(LibraryGateway& library, Guide& guide, Snackbar& snackbar,
            std::function<std::string()> storefront);

  /// `text`: a link to its page in the store, or its track ID.
  void open(const std::string& text);
  /// Its newest alert; without one the app.
  void openAlertOf(std::int64_t trackId);

 private:
  static Task<> find(QPointer<AppOpener> opener, std::int64_t trackId,
                     std::optional<std::string> country);
  static Task<> findAlert(QPointer<AppOpener> opener, std::int64_t trackId);

  LibraryGateway& library_;
  Guide& guide_;
  Snackbar& snackbar_;
  std::function<std::string()> storefront_;
};

}  // namespace quillet
