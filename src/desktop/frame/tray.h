// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMenu>
#include <QPointer>
#include <QSystemTrayIcon>
#include <memory>

#include "desktop/frame/host_link.h"
#include "desktop/look/look.h"
#include "desktop/models/place.h"
#include "desktop/services/library_gateway.h"
#include "library/schema/alert_record.h"

namespace quillet {

/// What the tray tells of alerts.
struct UnreadAlerts {
  std::int64_t count = 0;
  std::vector<AlertRecord> newest;  ///< a few
  std::optional<Instant> checked;   ///< when prices were last read of any app
};

/// The icon in the desktop's tray: whether there are unread alerts, and a menu for who has no
/// window open. The window need not be there; what is wanted of it is told.
///
/// The icon itself is made by the first show(), for which the desktop must have a tray.
class Tray : public QObject {
  Q_OBJECT

 public:
  /// All outlive the tray. `storefront`: the user's.
  Tray(LibraryGateway& library, Clock& clock, UtcOffsetAt zone,
       std::function<std::string()> storefront);

  /// Called once, when the library is open, with what outlives the tray.
  void use(ServiceHost& host) { host_.use(host); }
  void show();
  void hide();
  /// In the colours of the look, from now on.
  void paint(const Palette& palette);

  [[nodiscard]] QMenu& menu() { return menu_; }

 Q_SIGNALS:
  /// The window is to come, or to go.
  void toggled();
  void windowWanted();
  void sectionWanted(quillet::SectionId section);
  void settingsWanted();
  void alertWanted(std::int64_t trackId);

 private:
  void fill();
  void wantAlerts();
  static Task<> read(QPointer<Tray> tray);
  void take(UnreadAlerts alerts);
  void sayAlerts();
  void sayChecks();
  void paintIcon();

  LibraryGateway& library_;
  Clock& clock_;
  UtcOffsetAt zone_;
  HostLink host_;
  Palette palette_{Scheme::light, Contrast::normal};
  UnreadAlerts alerts_;
  bool isReading_ = false;
  bool isStale_ = false;  ///< what is being read was asked for too early
  QMenu menu_;
  QMenu unread_;
  QAction* check_ = nullptr;
  QAction* checked_ = nullptr;
  std::unique_ptr<QSystemTrayIcon> icon_;
};

}  // namespace quillet
