// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/library_search.h"

#include <gtest/gtest.h>

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusReply>
#include <QEventLoop>

#include "library/collections.h"
#include "library/library_connection.h"
#include "library/owned_apps.h"
#include "library/watched_apps.h"
#include "support/private_bus.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

using namespace Qt::StringLiterals;
using Arguments = std::vector<std::string>;

/// A desktop that searches, a library that another process writes, and a bus between them.
struct LibrarySearchTest : testing::Test {
  template <typename Row>
  static Row row(std::int64_t trackId, const char* country, const char* name) {
    Row made;
    made.trackId = trackId;
    made.country = country;
    made.name = name;
    return made;
  }
  void watch(std::int64_t trackId, const char* country, const char* name) {
    LibraryChanges changes;
    LibraryConnection(library).change(changes, [&](WriteTransaction& transaction) {
      watchApps(transaction, {row<WatchedApp>(trackId, country, name)});
    });
  }
  QVariantList ask(const char* method, const QVariantList& arguments) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        u"org.example.Quillet.SearchProvider"_s, u"/org/example/Quillet/SearchProvider"_s,
        u"org.gnome.Shell.SearchProvider2"_s, QString::fromLatin1(method));
    call.setArguments(arguments);
    QDBusPendingCallWatcher answer(bus.service.asyncCall(call));
    QEventLoop loop;
    QObject::connect(&answer, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    loop.exec();
    EXPECT_FALSE(answer.isError()) << answer.error().message().toStdString();
    return answer.reply().arguments();
  }
  QStringList find(const QStringList& words) {
    return ask("GetInitialResultSet", {words}).value(0).toStringList();
  }
  /// "name: description" of each.
  QStringList describe(const QStringList& hits) {
    QStringList lines;
    const auto metas = qdbus_cast<QList<QVariantMap>>(ask("GetResultMetas", {hits}).value(0));
    for (const QVariantMap& meta : metas) {
      EXPECT_TRUE(hits.contains(meta[u"id"_s].toString()));
      lines << meta[u"name"_s].toString() + u": "_s + meta[u"description"_s].toString();
    }
    return lines;
  }

  TemporaryFolder folder;
  std::filesystem::path library = folder.path() / "a b?#%" / "default.store";
  std::vector<Arguments> started;
  LibrarySearch search{library, "us", [this](const Arguments& each) { started.push_back(each); }};
  SearchProvider provider{search};
  PrivateBus bus;
};

TEST_F(LibrarySearchTest, FindsWhatTheListsHoldAndFollowsThem) {
  ASSERT_TRUE(provider.begin(bus.application));
  EXPECT_EQ(find({u"ink"_s}), QStringList()) << "there is no library";
  EXPECT_FALSE(std::filesystem::exists(library.parent_path())) << "and none is made";
  watch(7, "us", "Éclair Ink <b>");
  {
    LibraryConnection connection(library);
    LibraryChanges changes;
    connection.change(changes, [&](WriteTransaction& transaction) {
      addOwnedApps(transaction,
                   {row<OwnedApp>(7, "us", "Éclair Ink <b>"), row<OwnedApp>(8, "de", "Inkwell")});
    });
  }
  const QString eclair = u"quillet:app/7?country=us"_s, inkwell = u"quillet:app/8?country=de"_s;
  EXPECT_EQ(find({u"INK"_s}), QStringList({inkwell, eclair})) << "beginnings first";
  EXPECT_EQ(find({u"ink"_s, u"éclair"_s}), QStringList({eclair}));
  EXPECT_EQ(find({u"ink"_s, u"ecl%"_s}), QStringList());
  EXPECT_EQ(find({u" "_s}), QStringList());
  EXPECT_EQ(describe({inkwell, u"quillet:app/9?country=us"_s, eclair}),
            QStringList({u"Inkwell: My Apps · de"_s, u"Éclair Ink <b>: Watchlist, My Apps"_s}));
  watch(9, "us", "Inkling");
  EXPECT_EQ(ask("GetSubsearchResultSet", {QStringList{eclair}, QStringList{u"inkl"_s}})
                .value(0)
                .toStringList(),
            QStringList({u"quillet:app/9?country=us"_s}));
}

TEST_F(LibrarySearchTest, LeadsSomewhereAndDoesNothingElse) {
  ASSERT_TRUE(provider.begin(bus.application));
  ask("ActivateResult", {u"quillet:app/7?country=us"_s, QStringList{u"x"_s}, 5U});
  ask("LaunchSearch", {QStringList{u"--check-prices"_s, u"50%"_s}, 5U});
  for (const char* hostile : {"--check-prices", "quillet:check-prices", "https://q.example", ""})
    ask("ActivateResult", {QString::fromUtf8(hostile), QStringList(), 5U});
  EXPECT_EQ(started,
            (std::vector<Arguments>{{"--open", "quillet:app/7?country=us"},
                                    {"--open", "quillet:search?term=--check-prices%2050%25"}}));
  provider.end();
  LibrarySearch other(library, "us", [](const Arguments&) {});
  SearchProvider next(other);
  EXPECT_TRUE(next.begin(bus.service)) << "the name is free";
  EXPECT_FALSE(provider.begin(bus.application)) << "and taken";
  next.end();
}

}  // namespace
}  // namespace quillet
