// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>

#include "desktop/frame/search_guide.h"
#include "desktop/frame/snackbar.h"
#include "desktop/services/library_gateway.h"

namespace quillet {

/// Leads to an app that somebody outside the window names, once the library is open: to its row in
/// a list of the user's, or else into Search, which asks the store for it.
class AppOpener : public QObject {
  Q_OBJECT

 public:
  /// All outlive the opener. `storefront`: the user's.
  AppOpener(LibraryGateway& library, Guide& guide, SearchGuide& search, Snackbar& snackbar,
            std::function<std::string()> storefront);

  /// `text`: a link to its page in the store, its track ID or its bundle ID.
  void open(const std::string& text);
  /// Its newest alert; without one the app.
  void openAlertOf(std::int64_t trackId);

 private:
  /// An app, as it was named.
  struct Wanted {
    std::string text;
    std::int64_t trackId = 0;
    std::optional<std::string> country;
  };

  static Task<> find(QPointer<AppOpener> opener, Wanted wanted);
  static Task<> findAlert(QPointer<AppOpener> opener, std::int64_t trackId);

  LibraryGateway& library_;
  Guide& guide_;
  SearchGuide& search_;
  Snackbar& snackbar_;
  std::function<std::string()> storefront_;
};

}  // namespace quillet
