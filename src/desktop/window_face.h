// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <deque>
#include <functional>
#include <memory>
#include <optional>

#include "desktop/dialogs/diagnostics_text.h"
#include "desktop/frame/main_window.h"
#include "desktop/frame/tray.h"
#include "desktop/images/image_store.h"
#include "desktop/look/quillet_style.h"
#include "desktop/platform/autostart_entry.h"
#include "desktop/platform/network_state.h"
#include "desktop/platform/portal_appearance.h"
#include "desktop/platform/tray_host.h"
#include "desktop/services/host_notifications.h"
#include "desktop/services/service_host.h"
#include "system/places.h"

namespace quillet {

/// What the windows reach the outside through. All of it outlives them.
struct FaceWorld {
  Places places;
  LiveSettings& settings;
  HttpClient& http;
  Clock& clock;
  UserLocale locale;
  UtcOffsetAt timeZone;
  std::function<std::string()> storefront;  ///< the user's, two letters in lower case
  std::string systemStorefront;             ///< of someone who chooses none
  Endpoints endpoints;
  std::function<std::size_t()> requests;              ///< of the last minute
  std::function<std::vector<RecentLog::Line>()> log;  ///< its last lines
  std::function<bool()> isMetered;                    ///< the network that is in use
};

/// All that is seen of the application, on a display: its look, and its window once somebody wants
/// it. There is one, and it is made right after the application object.
class WindowFace : public QObject {
  Q_OBJECT

 public:
  explicit WindowFace(FaceWorld world);
  ~WindowFace() override;

  /// The session's bus is known: how the desktop wants windows to look is asked there, and whether
  /// it has a tray.
  void useBus(const QDBusConnection& bus);

  /// Brings the window to the front, also one that is made for that, and does there what is asked.
  void show(const DesktopArguments& asked = {});
  /// Whether the user can do without the window: there is an icon in the tray, and they did not ask
  /// for the end to come with the window's.
  [[nodiscard]] bool keepsRunning() const;
  /// The window was closed, and the application stays: says so once.
  void tellHidden();

  /// The library is open. The host outlives the window.
  void useHost(ServiceHost& host);
  /// It cannot be opened.
  void tellProblem(const DatabaseError& reason);

  /// The services were stopped: returns when nothing that windows asked of the store is under way.
  Task<> ended();
  /// The window goes, and with it all that it asked for.
  void close();

 Q_SIGNALS:
  void painted();
  void triedAgain();
  /// The user closed the window. Told later, when whatever closed it has gone on.
  void windowClosed();

 private:
  void takeAppearance();
  void takeSettings(const std::set<std::string>& keys);
  void beginLate();
  void sweepPictures();
  void showNotified(const std::string& activationToken);
  void showAlertOf(std::int64_t trackId);
  static Task<> openStore(QPointer<WindowFace> face, std::int64_t trackId);
  [[nodiscard]] DiagnosticSources diagnosticSources();
  void makeTray();
  void showTray();
  void make();
  void showThen(std::function<void()> next);
  void inTurn(std::deque<std::function<void()>> steps);
  void toggleWindow();
  void hideWindows();

  FaceWorld world_;
  QuilletStyle& style_;
  PortalAppearance appearance_;
  std::unique_ptr<LoginItem> loginItem_;  ///< none where a session starts nothing
  NetworkState network_;
  TrayHost trayHost_;
  LibraryGateway library_;
  EditHistory edits_{library_};
  HostNotifications notifications_{world_.settings};
  StoreGateway store_;
  PriceData prices_;
  RecordShelf records_;
  ImageStore images_;
  StateFile state_;
  CompareList compared_{state_};
  InstalledApps installed_{
      {library_, store_, world_.clock, world_.settings, state_, world_.storefront}};
  Updates updates_;
  DiagnosticSources diagnostics_ = diagnosticSources();
  std::optional<QDBusConnection> bus_;  ///< of the session, once it is known
  ServiceHost* host_ = nullptr;         ///< none before the library is open
  std::optional<DatabaseError> problem_;
  std::unique_ptr<MainWindow> window_;
  Tray tray_;
  bool owesWord_ = false;  ///< that the application stayed, to be said in the window
};

}  // namespace quillet
