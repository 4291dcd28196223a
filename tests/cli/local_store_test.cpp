// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/local_store.h"

#include <sys/wait.h>

#include <csignal>
#include <limits>
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

  /// As an account without rights over the folder, where the test runs with all of them.
  [[nodiscard]] int statusAsAnotherUser() const {
    const pid_t child = fork();
    if (child == 0) {
      if (getuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(9);
      _exit(names() == "Amber." ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WEXITSTATUS(status);
  }
};

TEST_F(LocalStoreTest, saysWhatIsMissingOrNoDatabase) {
  fs::remove(data);
  EXPECT_EQ(names(), "Quillet has no data yet.");
  fs::create_directories(data);
  std::ofstream(database).close();
  EXPECT_EQ(names(), "Could not read Quillet's database: no such table: ZOWNEDAPP");
  std::ofstream(database) << std::string(5000, 'x');
  EXPECT_EQ(names(), "Quillet's database could not be opened for reading.");
  fs::remove(database);
  fs::create_directories(database);
  EXPECT_EQ(names(), "Quillet's database could not be opened for reading.");
}

TEST_F(LocalStoreTest, readsTheLastCommitBesideAWriter) {
  makeLibrary(kOneApp);
  LibraryWriter writer(database);
  writer.run(
      "INSERT INTO ZOWNEDAPP (ZTRACKID, ZNAME) VALUES (8, 'Birch'); BEGIN;"
      "INSERT INTO ZOWNEDAPP (ZTRACKID, ZNAME) VALUES (9, 'Cove');");
  EXPECT_EQ(names(), "Amber.Birch.");
  EXPECT_FALSE(fs::exists(temporary));
}

TEST_F(LocalStoreTest, seesOneStateHoweverMuchIsWritten) {
  makeLibrary(kOneApp);
  const CLILocalStore store = CLILocalStore::open(environment);
  LibraryWriter(database).run("DELETE FROM ZOWNEDAPP; DROP TABLE ZWATCHEDAPP;");
  LocalStatement owned(store, "SELECT ZNAME FROM ZOWNEDAPP");
  EXPECT_TRUE(owned.next());
  EXPECT_FALSE(LocalStatement(store, "SELECT ZNAME FROM ZWATCHEDAPP").next());
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

TEST_F(LocalStoreTest, readsInAFolderThatItMayNotWriteTo) {
  makeLibrary(kOneApp);
  fs::create_directories(temporary);
  fs::permissions(temporary, fs::perms::all);
  fs::permissions(folder, fs::perms::all);
  fs::permissions(data, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                            fs::perms::others_exec);
  fs::permissions(database, fs::perms::owner_read | fs::perms::others_read);
  EXPECT_EQ(statusAsAnotherUser(), 0);
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
  const CLILocalStore store = CLILocalStore::open(environment);
  LocalStatement rows(store, "SELECT * FROM ODD");
  struct Row {
    std::optional<std::int64_t> integer;
    std::optional<double> number;
    std::optional<std::string> text;
    std::optional<std::string> date;
    std::optional<bool> flag;
  };
  const Row expected[] = {
      {},
      {{}, {}, std::string("\0\xFF", 2), {}, {}},
      {7, 4.0, "12", {}, true},
      {std::numeric_limits<std::int64_t>::min(), {}, "", "9999-12-31T23:59:59Z", true},
      {{}, {}, "é", "2001-01-01T00:00:00Z", {}},
  };
  for (const Row& row : expected) {
    ASSERT_TRUE(rows.next());
    EXPECT_EQ(rows.integer(0), row.integer);
    EXPECT_EQ(rows.number(1), row.number);
    EXPECT_EQ(rows.text(2), row.text);
    const auto date = rows.date(3);
    EXPECT_EQ(date ? std::optional(formatInternetDate(*date)) : std::nullopt, row.date);
    EXPECT_EQ(rows.flag(0), row.flag);
  }
  EXPECT_FALSE(rows.next());
}

}  // namespace
}  // namespace quillet
