// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include "desktop/services/service_host.h"

namespace quillet {

/// What stands for the windows until they are built: how many apps are watched, how the last price
/// check went, a button for one now, and one that lets Quillet notify. It can be shown while the
/// library still opens.
class PlainWindow : public QWidget {
  Q_OBJECT

 public:
  PlainWindow();

  /// Called once, with the services of the library that is open now, which outlive the window.
  void useHost(ServiceHost& host);

 private:
  void showState();
  void showNotifications();
  void countWatched();

  ServiceHost* host_ = nullptr;  ///< none before the library is open
  QLabel watched_;
  QLabel checked_;
  QLabel notifications_;
  QPushButton check_;
  QPushButton notify_;
};

}  // namespace quillet
