// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include <QApplication>
#include <QDBusConnection>
#include <cstdio>
#include <memory>

#include "base/errors.h"
#include "desktop/arguments.h"
#include "desktop/plain_window.h"
#include "desktop/service_host.h"
#include "desktop/single_instance.h"
#include "net/library_messages.h"
#include "net/logging_http_client.h"
#include "net/qt_http_client.h"
#include "net/run_task.h"
#include "net/stop_signals.h"
#include "notifications/freedesktop_notifications.h"
#include "system/application_name.h"
#include "system/even_random.h"
#include "system/log_topics.h"
#include "system/places.h"
#include "system/settings_file.h"

namespace quillet {

namespace {

// As the command line's statuses.
constexpr int kDone = 0;
constexpr int kBadUsage = 2;
constexpr int kFailed = 3;

void say(const std::string& line) { fmt::print(stderr, "quillet: {}\n", line); }

void writeLogLine(const std::string& line) { fmt::print(stderr, "{}\n", line); }

bool hasDisplay(const Environment& environment) {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    if (!environment.get(name).value_or("").empty()) return true;
  }
#ifdef __APPLE__
  return true;
#else
  return false;
#endif
}

/// Makes the window when it is first asked for, and brings it to the front.
class Face {
 public:
  explicit Face(ServiceHost& host) : host_(host) {}

  void obey(const DesktopArguments& arguments) {
    if (arguments.checksPrices) host_.checkPrices();
    if (arguments.isBackground) return;
    // qApp would be taken for an application with windows, which it need not be.
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) {
      say("there is no display to open a window on.");
      return;
    }
    if (window_ == nullptr) window_ = std::make_unique<PlainWindow>(host_);
    window_->show();
    window_->raise();
    window_->activateWindow();
  }

 private:
  ServiceHost& host_;
  std::unique_ptr<PlainWindow> window_;
};

struct Start {
  std::vector<std::string> arguments;
  const Environment& environment;
  Places places;
  LogTopics log;
};

int runServices(const Start& start, SingleInstance& instance, const StopSignals& signals) {
  IniSettingsFile settings(start.places.settingsFile);
  SystemClock clock;
  QtHttpClient network(start.places.cacheDirectory / "http");
  LoggingHttpClient http(network, clock, start.log.net ? LogSink(writeLogLine) : LogSink());
  FreedesktopNotifications notifications(QDBusConnection::sessionBus(), settings);
  const auto host = runTask(ServiceHost::open(
      {start.places.dataDirectory / "default.store",
       findEndpoints(start.environment, settings, start.places), findUserLocale(start.environment),
       localTimeZone(), http, clock, settings, notifications, evenRandom(),
       [&] { return defaultStorefront(settings, start.environment); }, say,
       start.log.db ? LogSink(writeLogLine) : LogSink()}));
  // One that came while the library opened found no loop to quit.
  if (signals.token().stopRequested()) return kDone;
  Face face(*host);
  QObject::connect(&instance, &SingleInstance::argumentsReceived, host.get(),
                   [&face](const std::vector<std::string>& arguments) {
                     face.obey(parseDesktopArguments(arguments));
                   });
  const StopCallback onSignal(signals.token(), [] { QCoreApplication::quit(); });
  host->start();
  face.obey(parseDesktopArguments(start.arguments));
  QCoreApplication::exec();
  runTask(host->shutDown());
  return kDone;
}

int runDesktop(const Start& start, bool canShow) {
  const StopSignals signals;
  SingleInstance instance(instanceSocket(start.environment, start.places));
  switch (instance.start(start.arguments)) {
    case SingleInstance::Role::second: return kDone;
    case SingleInstance::Role::unanswered:
      say("Quillet runs already, but does not answer.");
      return kFailed;
    case SingleInstance::Role::first: break;
  }
  const DesktopArguments asked = parseDesktopArguments(start.arguments);
  if (!asked.isBackground && !canShow) {
    say("there is no display to open a window on; quillet --background runs without one.");
    if (!start.arguments.empty() && asked == DesktopArguments{}) {
      fmt::print(stderr, "  try: quillet help (a command comes before its options)\n");
    }
    return kFailed;
  }
  QGuiApplication::setQuitOnLastWindowClosed(!asked.isBackground);
  return runServices(start, instance, signals);
}

int enter(int argc, char** argv) {
  const ProcessEnvironment environment;
  const LogTopics topics = readLogTopics(environment);
  handleLibraryMessages(topics.lib ? LibraryMessages::logged : LibraryMessages::quiet);
  holdStopSignals();
  const bool canShow = hasDisplay(environment);
  // Qt takes arguments that it knows out of argv.
  std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
  // Without a window there is no need of a display.
  std::unique_ptr<QCoreApplication> application;
  if (canShow) {
    application = std::make_unique<QApplication>(argc, argv);
  } else {
    application = std::make_unique<QCoreApplication>(argc, argv);
  }
  QCoreApplication::setApplicationName(QString::fromLatin1(kApplicationName));
  const Start start{std::move(arguments), environment, findPlaces(environment), topics};
  try {
    return runDesktop(start, canShow);
  } catch (const BadSetting& error) {
    say(error.what());
    return kBadUsage;
  } catch (const std::exception& error) {
    say(error.what());
    return kFailed;
  }
}

}  // namespace

}  // namespace quillet

// The executable has a C++ library of its own: no exception may reach it.
extern "C" __attribute__((visibility("default"))) int quillet_entry(int argc, char** argv) {
  return quillet::enter(argc, argv);
}
