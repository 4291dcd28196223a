// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/local_store.h"

#include <sys/wait.h>

#include <csignal>
#include <thread>

#include "cli/cli_error.h"
#include "cli/local/held_signals.h"
#include "cli/local/local_statement.h"
#include "support/library_builder.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

constexpr const char* kLock = "PRAGMA locking_mode=EXCLUSIVE; DELETE FROM ZWATCHEDAPP;";
constexpr const char* kOneApp = "INSERT INTO ZOWNEDAPP (ZTRACKID, ZNAME) VALUES (7, 'Amber');";

class LocalStoreTest : public LibraryTest {
 protected:
  /// The names of all owned apps, joined; or the error's text.
  [[nodiscard]] std::string names() const {
    try {
      const CLILocalStore store = CLILocalStore::open(environment);
      LocalStatement rows(store, "SELECT ZNAME FROM ZOWNEDAPP ORDER BY Z_PK");
      std::string all;
      while (rows.next()) all += rows.text(0).value_or("NULL") + ".";
      return all;
    } catch (const CLIError& error) {
      return error.what();
    }
  }
};

TEST_F(LocalStoreTest, saysWhatIsNoDatabase) {
  std::ofstream(database).close();
  EXPECT_EQ(names(), "Could not read Quillet's database: no such table: ZOWNEDAPP");
  std::ofstream(database) << std::string(5000, 'x');
  EXPECT_EQ(names(), "Quillet's database could not be opened for reading.");
}

TEST_F(LocalStoreTest, seesOneStateHoweverMuchIsWritten) {
  makeLibrary(kOneApp);
  LibraryWriter writer(database);
  writer.run(
      "INSERT INTO ZOWNEDAPP (ZTRACKID, ZNAME) VALUES (8, 'Birch'); BEGIN;"
      "DELETE FROM ZOWNEDAPP; DROP TABLE ZWATCHEDAPP;");
  EXPECT_EQ(names(), "Amber.Birch.");
  const CLILocalStore store = CLILocalStore::open(environment);
  writer.run("COMMIT");
  EXPECT_TRUE(LocalStatement(store, "SELECT ZNAME FROM ZOWNEDAPP").next());
  EXPECT_FALSE(LocalStatement(store, "SELECT ZNAME FROM ZWATCHEDAPP").next());
  EXPECT_FALSE(fs::exists(temporary));
}

TEST_F(LocalStoreTest, readsAPrivateCopyOfALockedDatabase) {
  makeLibrary(kOneApp);
  const auto modes = {"PRAGMA locking_mode=EXCLUSIVE;",
                      "PRAGMA journal_mode=DELETE; PRAGMA locking_mode=EXCLUSIVE;"};
  for (const std::string mode : modes) {
    LibraryWriter writer(database);
    writer.run(mode + "INSERT INTO ZOWNEDAPP (ZTRACKID, ZNAME) VALUES (8, 'Birch');");
    EXPECT_EQ(names(), "Amber.Birch.") << mode;
    EXPECT_TRUE(fs::exists(temporary)) << "no copy was made: " << mode;
    writer.run("DELETE FROM ZOWNEDAPP WHERE ZTRACKID = 8");
  }
}

TEST_F(LocalStoreTest, leavesNoCopyWhileItIsReadAndSaysSoWhereNoneCanBeMade) {
  makeLibrary(kOneApp);
  LibraryWriter writer(database);
  writer.run(kLock);
  const CLILocalStore store = CLILocalStore::open(environment);
  EXPECT_EQ(leftovers(), 0U);
  EXPECT_TRUE(LocalStatement(store, "SELECT ZNAME FROM ZOWNEDAPP").next());
  fs::remove_all(folder / "tmp");
  std::ofstream(folder / "tmp") << "a file in the way";
  EXPECT_EQ(names(), "Quillet's database could not be opened for reading.");
}

TEST_F(LocalStoreTest, followsALinkToWhereTheCompanionsAre) {
  makeLibrary();
  const fs::path elsewhere = folder / "elsewhere.db";
  fs::rename(database, elsewhere);
  fs::create_symlink(elsewhere, database);
  LibraryWriter writer(elsewhere);
  writer.run(std::string(kLock) + kOneApp);
  EXPECT_EQ(names(), "Amber.");
}

TEST_F(LocalStoreTest, tidiesUpWhenASignalEndsItWhileItCopies) {
  makeLibrary(kOneApp);
  LibraryWriter writer(database);
  writer.run(kLock);
  // A file of nothing takes no place here, but long to copy.
  fs::resize_file(database, std::uintmax_t{8} << 30);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const pid_t child = fork();
    if (child == 0) {
      std::signal(signal, SIG_DFL);
      // The first thread takes the signal, as a networking library's may.
      std::thread([this] { _exit(names().empty() ? 1 : 2); }).join();
    }
    while (leftovers() == 0 && waitpid(child, nullptr, WNOHANG) == 0) std::this_thread::yield();
    kill(child, signal);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
    EXPECT_EQ(leftovers(), 0U);
  }
}

TEST(HeldSignals, LeavesIgnoredOnesAlone) {
  std::signal(SIGHUP, SIG_IGN);
  const HeldSignals held;
  raise(SIGHUP);
  EXPECT_FALSE(held.waiting());
}

TEST_F(LocalStoreTest, readsOddValuesAsAbsent) {
  makeLibrary(R"(CREATE TABLE ODD (INTEGER, REAL, TEXT, DATE);
    INSERT INTO ODD VALUES (NULL, NULL, NULL, NULL), ('seven', 'cheap', x'00ff', 'today'),
      (7.9, 4, 12, 9e999), (-9223372036854775808, -9e999, '', 1e300), (x'07', x'', 'é', 0.5);)");
  const std::string expected[] = {"- - - - -", std::string("- - \0\xFF - -", 10), "7 4 12 - true",
                                  "-9223372036854775808 -  9999-12-31T23:59:59Z true",
                                  "- - é 2001-01-01T00:00:00Z -"};
  const CLILocalStore store = CLILocalStore::open(environment);
  LocalStatement rows(store, "SELECT * FROM ODD");
  const auto shown = [](const auto& value) { return value ? fmt::format("{}", *value) : "-"; };
  for (const std::string& row : expected) {
    ASSERT_TRUE(rows.next());
    const auto date = rows.date(3);
    EXPECT_EQ(fmt::format("{} {} {} {} {}", shown(rows.integer(0)), shown(rows.number(1)),
                          shown(rows.text(2)), date ? formatInternetDate(*date) : "-",
                          shown(rows.flag(0))),
              row);
  }
}

}  // namespace
}  // namespace quillet
