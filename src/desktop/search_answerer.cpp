// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/search_answerer.h"

#include <fmt/format.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QTimer>
#include <cerrno>
#include <string>
#include <system_error>
#include <vector>

#include "desktop/desktop_app.h"
#include "desktop/models/library_search.h"
#include "desktop/platform/search_provider.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

// Who types goes on within some seconds.
constexpr auto kIdle = 60s;

/// Comes back only where that cannot be.
void become(const std::string& program, std::vector<std::string> arguments) {
  std::vector<char*> words{const_cast<char*>(program.c_str())};
  for (std::string& each : arguments) words.push_back(each.data());
  words.push_back(nullptr);
  ::execv(program.c_str(), words.data());
}

}  // namespace

int answerSearches(const std::filesystem::path& library, const std::string& storefront,
                   const LogSink& say) {
  int count = 1;
  std::string name = "quillet";
  char* words[] = {name.data(), nullptr};
  const QCoreApplication application(count, words);
  std::vector<std::string> wanted;
  LibrarySearch search(library, storefront, [&wanted](const std::vector<std::string>& arguments) {
    wanted = arguments;
    // The answer to who asked goes first.
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
  });
  SearchProvider provider(search);
  if (!provider.begin(QDBusConnection::sessionBus())) {
    say("the desktop's searches are answered by another one, or there is no session bus.");
    return kDesktopFailed;
  }
  QTimer idle;
  idle.setSingleShot(true);
  QObject::connect(&idle, &QTimer::timeout, &application, &QCoreApplication::quit);
  QObject::connect(&provider, &SearchProvider::asked, &idle, [&idle] { idle.start(kIdle); });
  idle.start(kIdle);
  QCoreApplication::exec();
  provider.end();
  if (wanted.empty()) return kDesktopDone;
  become(QCoreApplication::applicationFilePath().toStdString(), std::move(wanted));
  say(fmt::format("Quillet could not be started: {}.", std::generic_category().message(errno)));
  return kDesktopFailed;
}

}  // namespace quillet
