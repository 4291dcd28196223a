// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include <QApplication>
#include <QDBusConnection>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "base/errors.h"
#include "base/module_entry.h"
#include "desktop/desktop_app.h"
#include "desktop/look/start_look.h"
#include "desktop/loop_watch.h"
#include "desktop/search_answerer.h"
#include "desktop/services/instance_claim.h"
#include "net/library_messages.h"
#include "system/application_name.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

// A display on the machine answers within a tenth of a second.
constexpr std::chrono::milliseconds kDisplayPatience = 3s;

void say(const std::string& line) { fmt::print(stderr, "quillet: {}\n", line); }

void writeLogLine(const std::string& line) { fmt::print(stderr, "{}\n", line); }

bool namesDisplay(const Environment& environment) {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    if (!environment.get(name).value_or("").empty()) return true;
  }
#ifdef __APPLE__
  return true;
#else
  return false;
#endif
}

/// Arguments for an application object of Qt, which takes out of them what it knows.
struct ProcessArguments {
  int count;
  char** words;
};

/// Qt ends a process whose display is dead.
bool isDisplayAlive(ProcessArguments arguments) {
  Trial display([arguments]() mutable {
    qunsetenv("SESSION_MANAGER");  // which is not to wait for it
    disableBus();                  // it is the display that is tried
    const QGuiApplication application(arguments.count, arguments.words);
    return true;
  });
  return display.state(kDisplayPatience) == TrialState::passed;
}

/// Somebody who asked for a window hears from Qt why there is none.
bool canShow(const DesktopArguments& asked, const Environment& environment,
             ProcessArguments arguments) {
  if (!namesDisplay(environment)) return false;
#ifdef __APPLE__
  return true;  // nor may a process be split there once its libraries are loaded
#else
  return !asked.isBackground || isDisplayAlive(arguments);
#endif
}

bool greets(QDBusConnection (*bus)()) {
  int count = 1;
  char name[] = "quillet";
  char* words[] = {name, nullptr};
  const QCoreApplication application(count, words);
  return bus().isConnected();
}

/// Of a start whose arguments another one has.
int endHandedOver(const HandedOver& handed, const DesktopArguments& asked) {
  if (!handed.lacksWindow) return kDesktopDone;
  say("Quillet runs in the background, without a display to open a window on.");
  return asked.checksPrices ? kDesktopDone : kDesktopFailed;
}

int failWithoutDisplay(const std::vector<std::string>& arguments, const DesktopArguments& asked) {
  say("there is no display to open a window on; quillet --background runs without one.");
  if (!arguments.empty() && asked == DesktopArguments{}) {
    fmt::print(stderr, "  try: quillet help (a command comes before its options)\n");
  }
  return kDesktopFailed;
}

/// Without a window there is no need of a display.
std::unique_ptr<QCoreApplication> makeApplication(bool shows, const LogTopics& log,
                                                  ProcessArguments& arguments) {
  if (shows && log.loop)
    return std::make_unique<WatchedApplication>(arguments.count, arguments.words, writeLogLine);
  if (shows) return std::make_unique<QApplication>(arguments.count, arguments.words);
  return std::make_unique<QCoreApplication>(arguments.count, arguments.words);
}

/// The themes of some desktops ask the bus while an application with windows is made, and Qt waits
/// for the answer.
bool themeAsksBus(const Environment& environment) {
  const std::string desktop = environment.get("XDG_CURRENT_DESKTOP").value_or("");
  return desktop.find("KDE") != std::string::npos ||
         !environment.get("QT_QPA_PLATFORMTHEME").value_or("").empty();
}

/// Does not come back. All is ended and written when the application has run, and the socket is
/// gone. What Qt's own end waits for, such as the name of a server that nobody tells, no longer
/// matters.
[[noreturn]] void runFirst(DesktopStart start, InstanceClaim claim, bool shows,
                           ProcessArguments& arguments) {
  BusTrials buses{Trial([] { return greets(QDBusConnection::sessionBus); }),
                  Trial([] { return greets(QDBusConnection::systemBus); })};
  if (shows && themeAsksBus(start.environment) &&
      buses.session.state(kBusPatience) == TrialState::running) {
    disableBus();
  }
  if (shows) chooseFonts();
  const auto application = makeApplication(shows, start.log, arguments);
  QCoreApplication::setApplicationName(QString::fromLatin1(kApplicationName));
  DesktopApp app(std::move(start), std::move(claim), std::move(buses));
  std::_Exit(app.run());
}

int start(ProcessArguments given) {
  const auto begun = std::chrono::steady_clock::now();
  const ProcessEnvironment environment;
  const LogTopics topics = readLogTopics(environment);
  handleLibraryMessages(topics.lib ? LibraryMessages::logged : LibraryMessages::quiet);
  const std::vector<std::string> arguments(given.words + std::min(given.count, 1),
                                           given.words + given.count);
  const DesktopArguments asked = parseDesktopArguments(arguments);
  const Places places = findPlaces(environment);
  if (asked.answersSearches) {
    const IniSettings settings(places.settingsFile);
    return answerSearches(places.dataDirectory / "default.store",
                          defaultStorefront(settings, environment), say);
  }
  auto claim = claimInstance(places.dataDirectory, environment.get("XDG_RUNTIME_DIR").value_or(""),
                             arguments);
  if (const auto* handed = std::get_if<HandedOver>(&claim)) return endHandedOver(*handed, asked);
  if (std::holds_alternative<Unanswered>(claim)) {
    say("Quillet runs already, but does not answer.");
    return kDesktopFailed;
  }
  const bool shows = canShow(asked, environment, given);
  if (!asked.isBackground && !shows) return failWithoutDisplay(arguments, asked);
  DesktopStart first{asked, environment, places, topics, say, writeLogLine, begun};
  runFirst(std::move(first), std::get<InstanceClaim>(std::move(claim)), shows, given);
}

int startAndTell(ProcessArguments arguments) {
  try {
    return start(arguments);
  } catch (const BadSetting& error) {
    say(error.what());
    return kDesktopBadUsage;
  } catch (const std::exception& error) {
    say(error.what());
    return kDesktopFailed;
  }
}

int enter(int argc, char** argv) { return startAndTell({argc, argv}); }

}  // namespace

}  // namespace quillet

QUILLET_MODULE_ENTRY(quillet::enter)
