// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSocketNotifier>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/platform/metered_network.h"
#include "desktop/platform/wake_watch.h"
#include "desktop/services/arguments.h"
#include "desktop/services/live_settings.h"
#include "desktop/services/recent_log.h"
#include "desktop/services/service_host.h"
#include "desktop/services/single_instance.h"
#include "desktop/services/trial.h"
#include "desktop/window_face.h"
#include "net/counting_http_client.h"
#include "net/logging_http_client.h"
#include "net/qt_http_client.h"
#include "net/stop_signals.h"
#include "notifications/freedesktop_notifications.h"
#include "system/log_topics.h"
#include "system/places.h"
#include "system/settings_file.h"

namespace quillet {

// As the command line's statuses.
inline constexpr int kDesktopDone = 0;
inline constexpr int kDesktopBadUsage = 2;
inline constexpr int kDesktopFailed = 3;

/// How long the session bus has for its greeting. One that is well answers within milliseconds,
/// while a session starts within a second.
inline constexpr std::chrono::seconds kBusPatience{3};

/// Without the bus from now on: all who would connect to it, and wait, read this first.
inline void disableBus() { qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:"); }

/// What a start of the application found out before there was an application.
struct DesktopStart {
  DesktopArguments asked;
  const Environment& environment;
  Places places;
  LogTopics log;
  LogSink say;       ///< a line for whoever started it
  LogSink writeLog;  ///< a line of the log
  std::chrono::steady_clock::time_point begun = std::chrono::steady_clock::now();
};

/// Whether the buses greet those who connect.
struct BusTrials {
  Trial session;
  Trial system;
};

/// The running application: the services, and the window once somebody wants it. Neither the window
/// nor the session's bus is waited for before the services run.
class DesktopApp {
 public:
  /// Throws BadSetting.
  DesktopApp(DesktopStart start, InstanceClaim claim, BusTrials buses);

  /// Runs the event loop until the end that the user, the session or a signal asks for; returns the
  /// process's status. Called once.
  [[nodiscard]] int run();

 private:
  [[nodiscard]] HostWorld world();
  void makeFace();
  Task<> open();
  void takeFailure(const std::exception& error);
  void startServices();
  void obey(const DesktopArguments& asked);
  void showWindow(const DesktopArguments& asked);
  void logStart(const char* what) const;
  void learnOfBus();
  void whenFree(std::function<void()> next);
  void learnOfSystemBus();
  void noteWindowClosed();
  void end();

  DesktopStart start_;
  IniSettingsFile settingsFile_;
  LiveSettings settings_;
  SystemClock clock_;
  QtHttpClient network_;
  RecentLog log_;
  CountingHttpClient counted_;
  LoggingHttpClient http_;
  FreedesktopNotifications notifications_;
  Endpoints endpoints_;
  SingleInstance instance_;
  BusTrials buses_;
  QSocketNotifier busAnswer_;
  QSocketNotifier systemBusAnswer_;
  MeteredNetwork metered_;
  WakeWatch wakes_;
  bool isBusKnown_ = false;
  std::optional<DesktopArguments> wanted_;  ///< in a window that waits for the bus
  bool isPainted_ = false;
  bool isStarted_ = false;  ///< what goes on by itself
  bool isEnding_ = false;
  int status_ = kDesktopDone;
  std::unique_ptr<ServiceHost> host_;  ///< none before the library is open
  std::unique_ptr<WindowFace> face_;   ///< none without a display
  std::optional<Task<>> opening_;
};

}  // namespace quillet
