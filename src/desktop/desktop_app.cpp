// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/desktop_app.h"

#include <QApplication>
#include <QDBusConnection>
#include <QTimer>
#include <utility>

#include "net/run_task.h"
#include "system/even_random.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

// Stops come at once; what is left is what a disk still writes, and that survives a crash.
constexpr std::chrono::milliseconds kLongestEnd = 1500ms;

/// qApp would be taken for an application with windows, which it need not be.
bool hasDisplay() { return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr; }

}  // namespace

DesktopApp::DesktopApp(DesktopStart start, InstanceClaim claim, Trial bus)
    : start_(std::move(start)),
      settings_(start_.places.settingsFile),
      network_(start_.places.cacheDirectory / "http"),
      http_(network_, clock_, start_.log.net ? start_.writeLog : LogSink()),
      notifications_(settings_),
      endpoints_(findEndpoints(start_.environment, settings_, start_.places)),
      instance_(std::move(claim)),
      bus_(std::move(bus)),
      busAnswer_(bus_.descriptor(), QSocketNotifier::Read) {
  QObject::connect(&busAnswer_, &QSocketNotifier::activated, &instance_, [this] { learnOfBus(); });
  QTimer::singleShot(kBusPatience, &instance_, [this] { learnOfBus(); });
  QObject::connect(&instance_, &SingleInstance::argumentsReceived, &instance_,
                   [this](const std::vector<std::string>& arguments) {
                     obey(parseDesktopArguments(arguments));
                   });
}

int DesktopApp::run() {
  const StopSignals signals(kLongestEnd);
  const StopCallback onSignal(signals.token(), [this] { end(); });
  QGuiApplication::setQuitOnLastWindowClosed(!start_.asked.isBackground);
  if (!start_.asked.isBackground) showWindow();
  Task<> opening = open();
  QCoreApplication::exec();
  signals.beginEnd();
  end();
  runTask(std::move(opening));
  if (host_) runTask(host_->shutDown());
  window_.reset();
  host_.reset();
  return status_;
}

HostWorld DesktopApp::world() {
  return {start_.places.dataDirectory / "default.store",
          endpoints_,
          findUserLocale(start_.environment),
          localTimeZone(),
          http_,
          clock_,
          settings_,
          notifications_,
          evenRandom(),
          [this] { return defaultStorefront(settings_, start_.environment); },
          start_.say,
          start_.log.db ? start_.writeLog : LogSink()};
}

/// The library, then all that stands on it. An end that was asked for meanwhile comes first.
Task<> DesktopApp::open() {
  try {
    HostWorld outside = world();
    auto host = co_await ServiceHost::open(std::move(outside));
    host_ = std::move(host);
  } catch (const std::exception& error) {
    start_.say(error.what());
    status_ = kDesktopFailed;
    // Queued: it would be lost before the event loop runs.
    QMetaObject::invokeMethod(&instance_, &QCoreApplication::quit, Qt::QueuedConnection);
  }
  if (!host_ || isEnding_) co_return;
  host_->start();
  if (window_) window_->useHost(*host_);
  if (start_.asked.checksPrices) host_->checkPrices();
  instance_.serve(hasDisplay() ? Windows::possible : Windows::impossible);
}

/// Of a later start: when the library is open.
void DesktopApp::obey(const DesktopArguments& asked) {
  if (asked.checksPrices) host_->checkPrices();
  if (!asked.isBackground) showWindow();
}

/// Made when it is first asked for, and brought to the front.
void DesktopApp::showWindow() {
  if (!hasDisplay()) {
    start_.say("there is no display to open a window on.");
    return;
  }
  // Whatever is shown speaks to the bus (so do screen readers), and Qt waits for its answer.
  wantsWindow_ = true;
  if (!isBusKnown_) return;
  if (window_ == nullptr) {
    window_ = std::make_unique<PlainWindow>();
    if (host_) window_->useHost(*host_);
  }
  window_->show();
  window_->raise();
  window_->activateWindow();
}

/// The bus has greeted or refused us, or had its time.
void DesktopApp::learnOfBus() {
  if (std::exchange(isBusKnown_, true)) return;
  busAnswer_.setEnabled(false);
  if (bus_.state(0ms) == TrialState::running) {
    start_.say("The session bus does not answer: nothing can be shown as a notification.");
    disableBus();
  }
  notifications_.useBus(QDBusConnection::sessionBus());
  if (wantsWindow_) showWindow();
}

/// The socket closes first: who starts from now on is to be the next application.
void DesktopApp::end() {
  isEnding_ = true;
  instance_.close();
  QCoreApplication::quit();
}

}  // namespace quillet
