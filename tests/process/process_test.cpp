// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// A few runs of the real programs: what only a process shows.

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <future>
#include <regex>

#include "support/library_builder.h"
#include "support/place.h"
#include "system/descriptor.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

struct Ended {
  int status = -1;
  std::string out;
  std::string err;
};

/// A session bus that accepts whoever connects, and says nothing.
class SilentBus {
 public:
  explicit SilentBus(const fs::path& path) : listener_(::socket(AF_UNIX, SOCK_STREAM, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.native().copy(address.sun_path, sizeof address.sun_path - 1);
    const auto* any = reinterpret_cast<const sockaddr*>(&address);
    EXPECT_EQ(::bind(listener_.get(), any, sizeof address), 0);
    EXPECT_EQ(::listen(listener_.get(), 10), 0);
  }

 private:
  Descriptor listener_;
};

class ProcessTest : public testing::Test {
 protected:
  /// Runs a shell command in which $QUILLET and $SANDBOX are the programs, with nothing of the
  /// user's own settings or caches.
  Ended run(const std::string& command) {
    const fs::path out = folder / "out";
    const fs::path err = folder / "err";
    const std::string line = fmt::format(
        "cd '{0}' && env -u QUILLET_ITUNES_URL -u QUILLET_DATA_DIR -u XDG_DATA_HOME -u LC_ALL "
        "HOME='{0}' XDG_CACHE_HOME='{0}/cache' "
        "XDG_CONFIG_HOME='{0}' LANG=en_US.UTF-8 QUILLET='{1}' SANDBOX='{2}' "
        "sh -c '{3}' >'{4}' 2>'{5}' </dev/null",
        folder.string(), placeOf(QUILLET_PROGRAM), placeOf(QUILLET_SANDBOX_PROGRAM), command,
        out.string(), err.string());
    const int raw = std::system(line.c_str());
    return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, contentOf(out), contentOf(err)};
  }

  /// With status 3, these words, and nothing on standard output.
  void expectFailure(const std::string& command, const std::string& words) {
    const Ended ended = run(command);
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.out, "");
    EXPECT_EQ(ended.err, "quillet: " + words + '\n');
  }

  /// Makes a library that holds these rows.
  void makeLibrary(const std::string& rows = "") const {
    fs::create_directory(folder / "data");
    LibraryWriter(folder / "data/default.store").run(libraryTables() + rows);
  }

  const TemporaryFolder own;
  const fs::path folder = own.path();
};

TEST_F(ProcessTest, EndsWithALineWhereThereIsNoDesktop) {
  expectFailure("cp $QUILLET ./alone && exec ./alone --background",
                "this build has no desktop application.");
  const std::string blind =
      "exec env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM QUILLET_DATA_DIR=d $QUILLET";
  const std::string noDisplay =
      "quillet: there is no display to open a window on; quillet --background runs without one.\n";
  EXPECT_EQ(run(blind).err, noDisplay);
  const Ended early = run(blind + " --json search x");
  EXPECT_EQ(early.status, 3);
  EXPECT_EQ(early.err, noDisplay + "  try: quillet help (a command comes before its options)\n");
}

TEST_F(ProcessTest, RunsInTheBackgroundUntilItIsTold) {
  const Ended ended = run(
      "export QUILLET_DATA_DIR=$PWD/d XDG_RUNTIME_DIR=$PWD; unset DBUS_SESSION_BUS_ADDRESS;"
      "exec $SANDBOX --apps 60 -- sh -c \"$QUILLET --background & P=\\$!;"
      "while ! $QUILLET watchlist; do :; done 2>/dev/null;"
      "$QUILLET --check-prices; echo handed over: \\$?; kill \\$P; wait \\$P; echo ended: \\$?\"");
  EXPECT_EQ(ended.out, "Nothing on the watchlist yet.\nhanded over: 0\nended: 0\n") << ended.err;
}

TEST_F(ProcessTest, ServesWhatIsHandedOverWhileTheLibraryOpens) {
  run("$SANDBOX --apps 60 --library data -- true");
  LibraryWriter other(folder / "data/default.store");
  other.run("BEGIN IMMEDIATE");
  ASSERT_EQ(::mkfifo((folder / "told").c_str(), 0600), 0);
  auto running = std::async(std::launch::async, [this] {
    return run(
        "export QUILLET_DATA_DIR=$PWD/data XDG_RUNTIME_DIR=$PWD QUILLET_LOG=net;"
        "unset DBUS_SESSION_BUS_ADDRESS; exec $SANDBOX --apps 60 -- sh -c \""
        "QT_QPA_PLATFORM=offscreen $QUILLET 2>log & P=\\$!;"
        "while ! test -s data/application.lock; do :; done; echo >told;"
        "$QUILLET --background --check-prices; echo handed over: \\$?;"
        "while ! grep -q lookup log; do :; done; kill \\$P; wait \\$P; echo ended: \\$?\"");
  });
  EXPECT_EQ(contentOf(folder / "told"), "\n");
  other.run("COMMIT");
  const Ended ended = running.get();
  EXPECT_EQ(ended.out, "handed over: 0\nended: 0\n") << ended.err;
}

TEST_F(ProcessTest, StaysOpenAtALibraryThatItCannotReadUnlessInTheBackground) {
  fs::create_directory(folder / "data");
  const std::string letter(400, 'x');
  std::ofstream(folder / "data/default.store") << letter;
  const Ended ended =
      run("export QUILLET_DATA_DIR=$PWD/data XDG_RUNTIME_DIR=$PWD QT_QPA_PLATFORM=offscreen;"
          "unset DBUS_SESSION_BUS_ADDRESS; $QUILLET --background 2>&1; echo ended: $?;"
          "$QUILLET 2>log & P=$!; while ! grep -q opened log; do :; done;"
          "$QUILLET --check-prices; echo handed over: $?; kill $P; wait $P; echo ended: $?");
  const std::string said = "quillet: The library could not be opened: file is not a database.\n";
  EXPECT_EQ(ended.out, said + "ended: 3\nhanded over: 0\nended: 3\n") << ended.err;
  EXPECT_EQ(contentOf(folder / "log"), said);
  EXPECT_EQ(contentOf(folder / "data/default.store"), letter);
}

TEST_F(ProcessTest, EndsSoonWhateverHoldsTheLibraryAndAtOnceWhenToldTwice) {
  fs::create_directory(folder / "data");
  LibraryWriter other(folder / "data/default.store");
  other.run("BEGIN IMMEDIATE");
  const auto begun = std::chrono::steady_clock::now();
  const Ended ended =
      run("export QUILLET_DATA_DIR=$PWD/data XDG_RUNTIME_DIR=$PWD; unset DBUS_SESSION_BUS_ADDRESS;"
          "start() { rm -f data/default.store.lock; $QUILLET --background & P=$!;"
          "  while ! test -e data/default.store.lock; do :; done; };"
          "start; kill $P; wait $P; echo once: $?;"
          "start; kill $P; kill -INT $P; wait $P; test $? -gt 128 && echo twice");
  EXPECT_EQ(ended.out, "once: 0\ntwice\n") << ended.err;
  EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(4));
}

TEST_F(ProcessTest, EndsSoonThoughNobodyTellsTheAddressOfAServer) {
  const Ended ended = run(fmt::format(
      "export QUILLET_DATA_DIR=$PWD/d XDG_RUNTIME_DIR=$PWD; unset DBUS_SESSION_BUS_ADDRESS;"
      "export QUILLET_APP_STORE_URL=http://store.example QUILLET_ITUNES_URL=http://store.example;"
      "LD_PRELOAD={} $QUILLET --background 2>log & P=$!;"
      "while kill -0 $P && ! grep -q asked log; do :; done; date +%s >begun; kill $P; wait $P; "
      "echo ended: $?;"
      "test $(date +%s) -le $(( $(cat begun) + 3 )) && echo soon; ls",
      placeOf(SLOW_NAMES_LIBRARY)));
  EXPECT_EQ(ended.out.substr(0, 14), "ended: 0\nsoon\n") << ended.err;
  EXPECT_EQ(ended.out.find("socket"), std::string::npos) << ended.out;
}

TEST_F(ProcessTest, NeedsNoDisplayAndNoBusInTheBackground) {
  const SilentBus bus(folder / "bus");
  const auto begun = std::chrono::steady_clock::now();
  const Ended ended = run(
      "export QUILLET_DATA_DIR=$PWD/d XDG_RUNTIME_DIR=$PWD QUILLET_LOG=net DISPLAY=:4711;"
      "export DBUS_SESSION_BUS_ADDRESS=unix:path=$PWD/bus; unset WAYLAND_DISPLAY QT_QPA_PLATFORM;"
      "exec $SANDBOX --apps 60 -- sh -c \"$QUILLET --background 2>log & P=\\$!;"
      "while ! grep -q charts log; do :; done; kill \\$P; wait \\$P; echo ended: \\$?\"");
  EXPECT_EQ(ended.out, "ended: 0\n") << ended.err;
  EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(10));
}

TEST_F(ProcessTest, FindsItsModulesThroughALink) {
  const Ended ended = run(
      "ln -s $QUILLET ./linked && exec $SANDBOX --apps 60 -- ./linked search notes -n 1 --json");
  EXPECT_EQ(ended.status, 0);
  EXPECT_TRUE(ended.out.starts_with("{\n  \"count\": 1,\n")) << ended.out;
  EXPECT_EQ(ended.err, "");
}

TEST_F(ProcessTest, SaysSoWhereTheOnlineModuleIsMissing) {
  expectFailure("cp $QUILLET ./alone && exec ./alone search notes",
                "A part of Quillet was not found: quillet-online.");
}

TEST_F(ProcessTest, ListsAsJsonWithoutAnyModule) {
  makeLibrary();
  const std::string alone = "cp $QUILLET ./alone; export QUILLET_DATA_DIR=data; exec ./alone ";
  for (const char* list : {"watchlist", "my-apps", "collections"}) {
    EXPECT_EQ(run(alone + list + " --json").out,
              "{\n  \"count\": 0,\n  \"items\": [],\n  \"total\": 0\n}\n");
  }
  expectFailure(alone + "watchlist", "A part of Quillet was not found: quillet-local.");
}

TEST_F(ProcessTest, AsksTheStoreForANameThatTheLibraryLacks) {
  run("$SANDBOX --apps 60 --library data -- true");
  LibraryWriter(folder / "data/default.store").run("DELETE FROM ZCACHEDAPP");
  const std::string command =
      "export QUILLET_DATA_DIR=data; cp $QUILLET ./alone; exec $SANDBOX --apps 60 --log -- ";
  const Ended told = run(command + "$QUILLET rank-history 1176895641 -c us");
  EXPECT_TRUE(told.out.starts_with("Taskheron (1176895641)\n")) << told.out << told.err;
  const Ended alone = run(command + "./alone rank-history 1176895641 -c us --json");
  EXPECT_EQ(alone.out.find("\"name\""), std::string::npos);
  EXPECT_NE(alone.out.find("\"rank\": "), std::string::npos);
  const Ended never = run(command + "$QUILLET rank-history 2 -c us --json");
  EXPECT_EQ(never.status, 1);
  EXPECT_EQ(never.err.find("GET "), std::string::npos) << never.err;
}

TEST_F(ProcessTest, ReadsTheLibraryOnceForTheRanksOfAnApp) {
  run("$SANDBOX --apps 60 --library data -- true");
  const auto timesOpened = [this](std::string_view form) {
    const Ended ended = run(fmt::format(
        "QUILLET_LOG=db QUILLET_DATA_DIR=data exec $SANDBOX --apps 60 -- $QUILLET rank-history "
        "1176895641 -c us {}",
        form));
    EXPECT_NE(ended.out.find("Taskheron"), std::string::npos) << ended.out << ended.err;
    std::size_t count = 0;
    for (auto at = ended.err.find("db open"); at != std::string::npos;
         at = ended.err.find("db open", at + 1))
      ++count;
    return count;
  };
  for (const char* form : {"", "--json"}) EXPECT_EQ(timesOpened(form), 1U) << "named " << form;
  LibraryWriter(folder / "data/default.store").run("DELETE FROM ZCACHEDAPP");
  for (const char* form : {"", "--json"}) EXPECT_EQ(timesOpened(form), 1U) << "nameless " << form;
}

TEST_F(ProcessTest, LoadsNoLibraryThatMakesAStartSlow) {
  const Ended needed = run("ldd $QUILLET");
  if (needed.status != 0) GTEST_SKIP() << "no ldd here";
  for (const char* slow : {"icu", "simdjson", "sqlite", "Qt"}) {
    EXPECT_EQ(needed.out.find(slow), std::string::npos) << needed.out;
  }
}

TEST_F(ProcessTest, LeavesTheLibraryAsItIsWhateverIsAsked) {
  makeLibrary();
  LibraryWriter writer(folder / "data/default.store");
  writer.run("INSERT INTO ZWATCHEDAPP (ZTRACKID, ZNAME) VALUES (7, \"Amber\")");
  const auto held = [this] {
    return contentOf(folder / "data/default.store") + contentOf(folder / "data/default.store-wal");
  };
  const std::string before = held();
  for (const char* command : {"watchlist", "my-apps", "collections", "collections x",
                              "saved-searches", "rank-history 7", "purchase-history 7"}) {
    const Ended text = run(fmt::format("QUILLET_DATA_DIR=data exec $QUILLET {}", command));
    EXPECT_LE(text.status, 1) << text.err;
    const Ended json = run(fmt::format("QUILLET_DATA_DIR=data exec $QUILLET {} --json", command));
    EXPECT_EQ(json.status, text.status) << command;
    EXPECT_EQ(held(), before) << command;
  }
}

TEST_F(ProcessTest, EndsQuietlyWhenNobodyReads) {
  for (const char* command :
       {"$QUILLET help charts", "$SANDBOX --apps 60 -- $QUILLET search notes"}) {
    const Ended closed = run(fmt::format("({}; echo $? >status) | true; cat status", command));
    EXPECT_EQ(closed.out, "0\n");
    EXPECT_EQ(closed.err, "");
  }
}

TEST_F(ProcessTest, ReportsAFullDisk) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
  expectFailure("exec $QUILLET help >/dev/full",
                "The output could not be written: No space left on device.");
}

TEST_F(ProcessTest, ReportsAClosedOutputInsteadOfWritingIntoAConnection) {
  for (const char* command :
       {"exec $QUILLET help >&-",
        "$SANDBOX --apps 60 -- sh -c \"exec $QUILLET search notes <&- >&-\""}) {
    expectFailure(command, "The output could not be written: Bad file descriptor.");
  }
}

TEST_F(ProcessTest, RefusesAddressesByTheNameOfTheirSource) {
  // Qt would take the last argument for its own.
  const Ended variable =
      run("QUILLET_ITUNES_URL=ftp://x exec $QUILLET search notes --genre -qmljsdebugger=port:1");
  EXPECT_EQ(variable.status, 2);
  EXPECT_TRUE(variable.err.starts_with("quillet: QUILLET_ITUNES_URL must be")) << variable.err;
}

TEST_F(ProcessTest, TellsOfASettingThatIsNoCountryWhereItWouldCount) {
  fs::create_directory(folder / "quillet");
  std::ofstream(folder / "quillet/quillet.conf") << "[General]\nstorefrontCountry=usa\n";
  const std::string told =
      "quillet: storefrontCountry in the settings is 'usa', which is no country; the storefront is "
      "us.\n";
  EXPECT_TRUE(run("exec $QUILLET deals").err.starts_with(told + "quillet: No published"));
  EXPECT_TRUE(run("exec $QUILLET deals -c us").err.starts_with("quillet: No published"));
  EXPECT_TRUE(run("exec $QUILLET watchlist").err.starts_with("quillet: Quillet has no data"));
}

TEST_F(ProcessTest, KeepsForeignLinesOffStandardError) {
  const Ended ended =
      run("LC_ALL=C exec $SANDBOX --apps 60 -- env XDG_CACHE_HOME=/proc/none "
          "$QUILLET search notes -n 1");
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.err, "");
  EXPECT_EQ(ended.out.find("★"), std::string::npos);
}

TEST_F(ProcessTest, TellsWhatItDoesWhereAsked) {
  makeLibrary();
  const std::string command =
      "export QUILLET_DATA_DIR=$PWD/data; {} exec $SANDBOX --apps 60 -- "
      "$QUILLET search notes --hide-owned --json -n 1";
  const Ended plain = run(fmt::format(fmt::runtime(command), ""));
  const Ended told = run(fmt::format(fmt::runtime(command), "QUILLET_LOG=net,db,x"));
  EXPECT_EQ(plain.err, "");
  EXPECT_EQ(told.out, plain.out);
  EXPECT_EQ(
      std::regex_replace(told.err, std::regex(" +[0-9.]+ (ms|B|rows)|127[0-9.:]+"), " # $1"),
      fmt::format("quillet: QUILLET_LOG takes net, db, lib, start, loop; got 'x'.\n"
                  "db open  {}/data/default.store\n"
                  "db # ms # rows    BEGIN;\n"
                  "db # ms # rows    SELECT ? FROM sqlite_master\n"
                  "db # ms # rows    SELECT ZTRACKID FROM ZOWNEDAPP\n"
                  "db close\n"
                  "net 200 # ms # B network     http:// # /search?term=notes&entity=macSoftware"
                  "&country=us&limit=200\n",
                  folder.string()));
}

}  // namespace
}  // namespace quillet
