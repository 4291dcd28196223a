// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/diagnostics_text.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <QStringList>
#include <QSysInfo>
#include <QUrl>

#include "base/errors.h"
#include "desktop/dialogs/used_libraries.h"
#include "desktop/images/image_store.h"
#include "library/library_facts.h"
#include "net/worker.h"
#include "system/locale_formats.h"

namespace quillet {

namespace {

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

QString tr(const char* text) { return QCoreApplication::translate("Diagnostics", text); }
QString textOf(const std::string& text) { return QString::fromStdString(text); }

/// Headings, and below them facts.
class Lines {
 public:
  void head(const QString& title) {
    if (!lines_.isEmpty()) lines_ << QString();
    lines_ << title;
  }
  void fact(const QString& name, const QString& value) {
    lines_ << u"  %1: %2"_s.arg(name, value.isEmpty() ? tr("unknown") : value);
  }
  void line(const QString& text) { lines_ << u"  "_s + text; }
  [[nodiscard]] QString text() const { return lines_.join(u'\n') + u'\n'; }

 private:
  QStringList lines_;
};

}  // namespace

QString placeText(const fs::path& place, const fs::path& home) {
  const std::string& text = place.native();
  const std::string& start = home.native();
  const bool isBelow = !start.empty() && text.starts_with(start) &&
                       (text.size() == start.size() || text[start.size()] == '/');
  return QFile::decodeName((isBelow ? "~" + text.substr(start.size()) : text).c_str());
}

namespace {

/// Without what lets one in, which nobody wants in a report.
QString addressText(const std::string& address, const fs::path& home) {
  constexpr std::string_view kFile = "file://";
  if (address.starts_with(kFile)) return placeText(address.substr(kFile.size()), home);
  return QUrl(textOf(address)).toDisplayString(QUrl::RemoveUserInfo | QUrl::RemoveQuery);
}

QString timeText(const std::optional<Instant>& time) {
  return time ? textOf(formatInternetDate(*time)) : tr("never");
}

std::uintmax_t bytesBelow(const fs::path& folder) {
  std::uintmax_t bytes = 0;
  std::error_code error;
  for (fs::recursive_directory_iterator each(folder, error), end; !error && each != end;
       each.increment(error)) {
    std::error_code unreadable;
    if (each->is_regular_file(unreadable)) bytes += each->file_size(unreadable);
  }
  return bytes;
}

std::uintmax_t bytesOfLibrary(const fs::path& folder) {
  std::uintmax_t bytes = 0;
  for (const char* ending : {"", "-wal", "-shm"}) {
    std::error_code error;
    const auto size = fs::file_size((folder / "default.store").native() + ending, error);
    if (!error) bytes += size;
  }
  return bytes;
}

struct DiskUse {
  std::uintmax_t library = 0;
  std::uintmax_t answers = 0;  ///< of the network, kept
};

Task<DiskUse> diskUse(Places places) {
  auto measure = [places] {
    return DiskUse{bytesOfLibrary(places.dataDirectory),
                   bytesBelow(places.cacheDirectory / "http")};
  };
  return onWorker(std::move(measure));
}

/// What a service of the session answers; null without one. None is started for it.
Task<QDBusMessage> answerOf(QDBusConnection bus, QDBusMessage call) {
  constexpr int kPatience = 2000;
  call.setAutoStartService(false);
  const QDBusPendingCallWatcher watcher(bus.asyncCall(call, kPatience));
  const Completion ended;
  QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &watcher,
                   [ended] { ended.set(); });
  if (!watcher.isFinished()) co_await ended;
  co_return watcher.reply();
}

Task<QString> notificationServer(QDBusConnection bus) {
  const QString name = u"org.freedesktop.Notifications"_s;
  QDBusMessage call = QDBusMessage::createMethodCall(name, u"/org/freedesktop/Notifications"_s,
                                                     name, u"GetServerInformation"_s);
  const QDBusMessage answer = co_await answerOf(bus, call);
  const QList<QVariant> values = answer.arguments();
  if (answer.type() != QDBusMessage::ReplyMessage || values.size() < 3) co_return tr("none");
  co_return u"%1 %2"_s.arg(values[0].toString(), values[2].toString());
}

Task<QString> portal(QDBusConnection bus) {
  const QString name = u"org.freedesktop.DBus"_s;
  QDBusMessage call =
      QDBusMessage::createMethodCall(name, u"/org/freedesktop/DBus"_s, name, u"NameHasOwner"_s);
  call << u"org.freedesktop.portal.Desktop"_s;
  const QDBusMessage answer = co_await answerOf(bus, call);
  const bool isThere =
      answer.type() == QDBusMessage::ReplyMessage && answer.arguments().value(0).toBool();
  co_return isThere ? tr("running") : tr("none");
}

void addProgram(Lines& lines, const DiagnosticSources& sources) {
  lines.head(u"Quillet "_s + textOf(sources.version));
  lines.fact(tr("Program"), placeText(sources.program, sources.home));
  lines.fact(tr("System"),
             u"%1, %2, %3"_s.arg(QSysInfo::prettyProductName(), QSysInfo::kernelVersion(),
                                 QSysInfo::currentCpuArchitecture()));
  lines.fact(tr("Desktop"), qEnvironmentVariable("XDG_CURRENT_DESKTOP"));
  lines.fact(tr("Platform plug-in"), QGuiApplication::platformName());
  for (const QScreen* screen : QGuiApplication::screens())
    lines.fact(tr("Screen"), u"%1 × %2, %3"_s.arg(screen->size().width())
                                 .arg(screen->size().height())
                                 .arg(screen->devicePixelRatio()));
}

void addLibraries(Lines& lines) {
  lines.head(tr("Libraries"));
  for (const UsedLibrary& each : usedLibraries()) {
    if (!each.version.isEmpty()) lines.fact(each.name, each.version);
  }
}

void addPlaces(Lines& lines, const DiagnosticSources& sources) {
  const auto add = [&](const char* name, const fs::path& place) {
    lines.fact(tr(name), placeText(place, sources.home));
  };
  lines.head(tr("Places"));
  add("Data", sources.places.dataDirectory);
  add("Settings", sources.places.settingsFile);
  add("State", sources.places.stateDirectory);
  add("Cache", sources.places.cacheDirectory);
  add("Start at login", sources.places.autostartDirectory);
}

void addAddresses(Lines& lines, const DiagnosticSources& sources, const Settings& settings) {
  lines.head(tr("Addresses"));
  const auto add = [&](const char* name, const std::string& address) {
    lines.fact(tr(name), addressText(address, sources.home));
  };
  add("Search service", sources.endpoints.itunes);
  add("App Store pages", sources.endpoints.appStore);
  add("Price data", sources.endpoints.priceData);
  const std::string feed = settings.text(kUpdateFeedUrl.key).value_or("");
  lines.fact(tr("List of releases"), feed.empty() ? tr("none") : addressText(feed, sources.home));
}

void addLibrary(Lines& lines, const std::optional<LibraryFacts>& facts, const QString& size) {
  lines.head(tr("Library"));
  lines.fact(tr("Size"), size);
  if (!facts) return lines.line(tr("It is not open."));
  for (const TableFacts& table : facts->tables)
    lines.fact(textOf(table.name), QString::number(table.rows));
}

void addLog(Lines& lines, const std::vector<RecentLog::Line>& log, AppMentions mentions) {
  lines.head(tr("Last lines of the log"));
  if (log.empty()) lines.line(tr("none"));
  for (const RecentLog::Line& each : log) {
    const std::string text = mentions == AppMentions::none ? withoutApps(each.text) : each.text;
    lines.line(textOf(formatInternetDate(each.at) + ' ' + text));
  }
}

/// One that cannot be opened is waited for without an end.
Task<std::optional<LibraryFacts>> factsOf(LibraryGateway* library) {
  std::optional<LibraryFacts> facts;
  if (!library->isOpen()) co_return facts;
  try {
    facts = co_await library->read(libraryFacts);
  } catch (const DatabaseError&) {
    facts.reset();
  }
  co_return facts;
}

struct Session {
  QString server;
  QString portal;
};

Task<Session> askSession(std::optional<QDBusConnection> bus) {
  Session session{tr("none"), tr("none")};
  if (!bus || !bus->isConnected()) co_return session;
  session.server = co_await notificationServer(*bus);
  session.portal = co_await portal(*bus);
  co_return session;
}

}  // namespace

Task<QString> diagnosticsText(ViewWorld world, DiagnosticSources sources, AppMentions mentions) {
  const LocaleFormats formats(world.locale);
  const auto bytes = [&formats](std::uintmax_t count) {
    return textOf(formats.byteCount(static_cast<std::int64_t>(count)));
  };
  const QString tray = sources.hasTray() ? tr("running") : tr("none");
  const std::size_t requests = sources.requests();
  const std::vector<RecentLog::Line> log = sources.log();
  const std::optional<std::string> priceData =
      world.settings.text(std::string(kPriceSeedLastWebCheckPrefix) + world.storefront());
  Lines lines;
  addProgram(lines, sources);
  addLibraries(lines);
  addPlaces(lines, sources);
  addAddresses(lines, sources, world.settings);
  const DiskUse disk = co_await diskUse(sources.places);
  const std::optional<LibraryFacts> facts = co_await factsOf(&world.library);
  addLibrary(lines, facts, bytes(disk.library));
  lines.head(tr("Last checks"));
  lines.fact(tr("Prices"), facts ? timeText(facts->pricesChecked) : QString());
  lines.fact(tr("Charts"), facts ? timeText(facts->chartsRecorded) : QString());
  lines.fact(tr("Price data"), priceData ? textOf(*priceData) : tr("never"));
  lines.head(tr("Network"));
  lines.fact(tr("Requests in the last minute"), QString::number(requests));
  lines.fact(tr("Kept answers"), bytes(disk.answers));
  const std::uintmax_t pictures = co_await world.images.size();
  lines.fact(tr("Kept pictures"), bytes(pictures));
  const Session session = co_await askSession(sources.bus());
  lines.head(tr("Session"));
  lines.fact(tr("Tray"), tray);
  lines.fact(tr("Notification server"), session.server);
  lines.fact(tr("Portal"), session.portal);
  addLog(lines, log, mentions);
  co_return lines.text();
}

}  // namespace quillet
