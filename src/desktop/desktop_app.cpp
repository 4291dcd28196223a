// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/desktop_app.h"

#include <fmt/format.h>

#include <QApplication>
#include <QDBusConnection>
#include <QTimer>
#include <utility>

#include "base/errors.h"
#include "net/run_task.h"
#include "system/even_random.h"
#include "system/settings_keys.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

// Stops come at once; what is left is what a disk still writes, and that survives a crash.
constexpr std::chrono::milliseconds kLongestEnd = 1500ms;

// What asks the network by itself waits for as long where there is a window to fill first.
constexpr std::chrono::milliseconds kAfterPaint = 5s;

// Without one, until the system has said whether the network is metered.
constexpr std::chrono::milliseconds kAfterOpening = 500ms;

/// qApp would be taken for an application with windows, which it need not be.
bool hasDisplay() { return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr; }

}  // namespace

DesktopApp::DesktopApp(DesktopStart start, InstanceClaim claim, BusTrials buses)
    : start_(std::move(start)),
      settingsFile_(start_.places.settingsFile),
      settings_(settingsFile_),
      network_(start_.places.cacheDirectory / "http"),
      counted_(network_, clock_),
      http_(counted_, clock_, log_.before(start_.log.net ? start_.writeLog : LogSink())),
      notifications_(settings_),
      endpoints_(findEndpoints(start_.environment, settings_, start_.places)),
      instance_(std::move(claim)),
      buses_(std::move(buses)),
      busAnswer_(buses_.session.descriptor(), QSocketNotifier::Read),
      systemBusAnswer_(buses_.system.descriptor(), QSocketNotifier::Read) {
  QObject::connect(&busAnswer_, &QSocketNotifier::activated, &instance_, [this] { learnOfBus(); });
  QTimer::singleShot(kBusPatience, &instance_, [this] { learnOfBus(); });
  QObject::connect(&systemBusAnswer_, &QSocketNotifier::activated, &instance_,
                   [this] { learnOfSystemBus(); });
  QObject::connect(&metered_, &MeteredNetwork::changed, &instance_, [this] {
    if (host_) host_->reconsider();
  });
  QObject::connect(&wakes_, &WakeWatch::woke, &instance_, [this] {
    if (host_) host_->noteWake();
  });
  QObject::connect(&instance_, &SingleInstance::argumentsReceived, &instance_,
                   [this](const std::vector<std::string>& arguments) {
                     obey(parseDesktopArguments(arguments));
                   });
}

int DesktopApp::run() {
  const StopSignals signals(kLongestEnd);
  const StopCallback onSignal(signals.token(), [this] { end(); });
  QGuiApplication::setQuitOnLastWindowClosed(false);
  if (hasDisplay()) makeFace();
  if (!start_.asked.isBackground) showWindow(start_.asked);
  opening_ = open();
  QCoreApplication::exec();
  signals.beginEnd();
  end();
  runTask(std::move(*opening_));
  if (host_) runTask(host_->shutDown());
  if (face_) {
    face_->close();
    runTask(face_->ended());
  }
  host_.reset();
  face_.reset();
  return status_;
}

void DesktopApp::makeFace() {
  face_ = std::make_unique<WindowFace>(FaceWorld{
      start_.places, settings_, http_, clock_, findUserLocale(start_.environment), localTimeZone(),
      [this] { return defaultStorefront(settings_, start_.environment); },
      defaultStorefront(IniSettings::parse({}), start_.environment), endpoints_,
      [this] { return counted_.inLastMinute(); }, [this] { return log_.lines(); },
      [this] { return metered_.isMetered(); }});
  QObject::connect(face_.get(), &WindowFace::painted, &instance_, [this] {
    logStart("first paint");
    isPainted_ = true;
    whenFree([this] { startServices(); });
  });
  QObject::connect(face_.get(), &WindowFace::windowClosed, &instance_,
                   [this] { noteWindowClosed(); });
  QObject::connect(face_.get(), &WindowFace::triedAgain, &instance_, [this] {
    if (!host_ && opening_->isReady()) opening_ = open();
  });
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
          log_.before(start_.say),
          start_.log.db ? start_.writeLog : LogSink(),
          [this] { return metered_.isMetered(); }};
}

/// The library, then all that stands on it. An end that was asked for meanwhile comes first.
Task<> DesktopApp::open() {
  try {
    HostWorld outside = world();
    auto host = co_await ServiceHost::open(std::move(outside));
    host_ = std::move(host);
    status_ = kDesktopDone;
  } catch (const std::exception& error) {
    takeFailure(error);
  }
  if (isEnding_) co_return;
  if (host_) {
    logStart("library open");
    QObject::connect(&settings_, &LiveSettings::changed, host_.get(), &ServiceHost::takeSettings);
    if (face_) face_->useHost(*host_);
    startServices();
    if (start_.asked.checksPrices) host_->checkPrices();
  }
  instance_.serve(hasDisplay() ? Windows::possible : Windows::impossible);
}

/// A window says what is the matter; a start in the background ends.
void DesktopApp::takeFailure(const std::exception& error) {
  start_.say(error.what());
  status_ = kDesktopFailed;
  if (face_ && !start_.asked.isBackground) {
    const auto* known = dynamic_cast<const DatabaseError*>(&error);
    face_->tellProblem(known == nullptr ? DatabaseError(error.what()) : *known);
    return;
  }
  // Queued: it would be lost before the event loop runs.
  QMetaObject::invokeMethod(&instance_, &QCoreApplication::quit, Qt::QueuedConnection);
}

/// Once the library is open and the window, where one is wanted, was painted.
void DesktopApp::startServices() {
  const bool waitsForPaint = face_ && !start_.asked.isBackground && !isPainted_;
  if (!host_ || waitsForPaint || isEnding_ || std::exchange(isStarted_, true)) return;
  wakes_.begin();
  host_->start(isPainted_ ? kAfterPaint : kAfterOpening);
}

/// Of a later start: when the library is open, or cannot be opened.
void DesktopApp::obey(const DesktopArguments& asked) {
  if (asked.checksPrices && host_) host_->checkPrices();
  if (!asked.isBackground) showWindow(asked);
}

/// Made when it is first asked for, and brought to the front.
void DesktopApp::showWindow(const DesktopArguments& asked) {
  if (!face_) {
    start_.say("there is no display to open a window on.");
    return;
  }
  // Whatever is shown speaks to the bus (so do screen readers), and Qt waits for its answer.
  if (!isBusKnown_) {
    wanted_ = asked;
    return;
  }
  face_->show(asked);
}

/// The bus has greeted or refused us, or had its time.
void DesktopApp::learnOfBus() {
  if (std::exchange(isBusKnown_, true)) return;
  busAnswer_.setEnabled(false);
  if (buses_.session.state(0ms) == TrialState::running) {
    start_.say("The session bus does not answer: nothing can be shown as a notification.");
    disableBus();
  }
  const QDBusConnection bus = QDBusConnection::sessionBus();
  notifications_.useBus(bus);
  if (face_) face_->useBus(bus);
  whenFree([this] {
    if (wanted_) showWindow(*std::exchange(wanted_, std::nullopt));
  });
}

/// In an event of its own, so that none is long.
void DesktopApp::whenFree(std::function<void()> next) {
  QTimer::singleShot(0, &instance_, [this, next = std::move(next)] {
    if (!isEnding_) next();
  });
}

/// One that does not answer is never spoken to: Qt would wait for it.
void DesktopApp::learnOfSystemBus() {
  systemBusAnswer_.setEnabled(false);
  if (isEnding_ || buses_.system.state(0ms) != TrialState::passed) return;
  const QDBusConnection bus = QDBusConnection::systemBus();
  metered_.useBus(bus);
  wakes_.useBus(bus);
}

/// Without an icon to come back by, who closes the window means the end, unless nobody opened it at
/// the start.
void DesktopApp::noteWindowClosed() {
  if (isEnding_) return;
  if (start_.asked.isBackground || face_->keepsRunning()) {
    face_->tellHidden();
  } else {
    QCoreApplication::quit();
  }
}

void DesktopApp::logStart(const char* what) const {
  if (!start_.log.start) return;
  const auto passed = std::chrono::steady_clock::now() - start_.begun;
  start_.writeLog(fmt::format("start {:6} ms  {}",
                              std::chrono::round<std::chrono::milliseconds>(passed).count(), what));
}

/// The socket closes first: who starts from now on is to be the next application.
void DesktopApp::end() {
  isEnding_ = true;
  instance_.close();
  QCoreApplication::quit();
}

}  // namespace quillet
