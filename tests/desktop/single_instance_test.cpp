// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/single_instance.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <memory>

#include "desktop/instance_message.h"
#include "support/event_loop.h"
#include "support/map_environment.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;
using Role = SingleInstance::Role;
using Arguments = std::vector<std::string>;

TEST(InstanceMessage, IsReadWhenAllOfItIsThere) {
  const struct {
    const char* situation;
    std::string received;
    const char* kind;
  } rows[] = {
      {"nothing yet", "", "incomplete"},
      {"half its opening", "quillet-arg", "incomplete"},
      {"half its length", "quillet-arguments 1 1", "incomplete"},
      {"half an argument", "quillet-arguments 1 5\nope", "incomplete"},
      {"another program's", "GET / HTTP/1.1\r\n", "bad"},
      {"another form", "quillet-arguments 2 5\nopen", "bad"},
      {"no length", "quillet-arguments 1 \n", "bad"},
      {"a negative length", "quillet-arguments 1 -1\n", "bad"},
      {"too many digits", "quillet-arguments 1 000005", "bad"},
      {"too long", "quillet-arguments 1 65537\n", "bad"},
      {"more than it says", std::string("quillet-arguments 1 2\na\0b", 25), "bad"},
      {"an argument without its end", "quillet-arguments 1 2\nab", "bad"},
      {"no arguments", "quillet-arguments 1 0\n", "arguments"},
  };
  constexpr const char* kKinds[] = {"incomplete", "bad", "arguments"};
  for (const auto& row : rows) {
    EXPECT_STREQ(kKinds[readInstanceMessage(row.received).index()], row.kind) << row.situation;
  }
  for (const Arguments& arguments :
       {Arguments{}, Arguments{""}, Arguments{"--open", "", "two\nlines é"},
        Arguments{std::string(65535, 'x')}}) {
    EXPECT_EQ(std::get<Arguments>(readInstanceMessage(*instanceMessage(arguments))), arguments);
  }
  EXPECT_EQ(instanceMessage({std::string(65536, 'x')}), std::nullopt);
}

TEST(InstanceSocket, BelongsToTheDataDirectory) {
  const QTemporaryDir runtime;
  const std::string folder = runtime.path().toStdString();
  const auto socket = [](const char* data, const std::string& runtimeDirectory) {
    Places places;
    places.dataDirectory = data;
    return instanceSocket(MapEnvironment({{"XDG_RUNTIME_DIR", runtimeDirectory}}), places);
  };
  EXPECT_EQ(socket("/d", folder).parent_path(), folder);
  EXPECT_EQ(socket("/d", folder), socket("/./d/", folder));
  EXPECT_NE(socket("/d", folder), socket("/e", folder));
  for (const std::string& unusable : {std::string(), std::string("run"), folder + "/none"}) {
    EXPECT_EQ(socket("/d", unusable).parent_path(), "/d") << unusable;
  }
}

class SingleInstanceTest : public testing::Test {
 protected:
  /// A later start, which ends at once; on a thread since it waits for the first.
  Role startAgain(const Arguments& arguments) {
    Role role = Role::first;
    const std::unique_ptr<QThread> thread(
        QThread::create([&] { role = SingleInstance(socket_).start(arguments); }));
    QEventLoop loop;
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    thread->start();
    loop.exec();
    thread->wait();
    return role;
  }

  void listenTo(SingleInstance& instance) {
    QObject::connect(&instance, &SingleInstance::argumentsReceived, &context_,
                     [this](const Arguments& arguments) { received_.push_back(arguments); });
  }

  /// A socket file to which nobody listens any more.
  void leaveStaleSocket() const {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    socket_.string().copy(address.sun_path, sizeof address.sun_path - 1);
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(descriptor);
  }

  QTemporaryDir folder_;
  fs::path socket_ = fs::path(folder_.path().toStdString()) / "data" / "q.socket";
  QObject context_;
  std::vector<Arguments> received_;
};

TEST_F(SingleInstanceTest, ALaterStartHandsItsArgumentsOver) {
  {
    SingleInstance first(socket_);
    listenTo(first);
    EXPECT_EQ(first.start({"--background"}), Role::first);
    struct stat status{};
    ASSERT_EQ(::stat(socket_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0077, 0U) << "for nobody else";
    EXPECT_EQ(startAgain({"--open", "7"}), Role::second);
    EXPECT_EQ(startAgain({}), Role::second);
    EXPECT_EQ(startAgain({std::string(70000, 'x')}), Role::second);
    EXPECT_EQ(received_, (std::vector<Arguments>{{"--open", "7"}, {}, {}}));
  }
  EXPECT_FALSE(fs::exists(socket_));
  EXPECT_EQ(startAgain({}), Role::first);
}

TEST_F(SingleInstanceTest, TakesOverWhatACrashLeftBehind) {
  fs::create_directories(socket_.parent_path());
  leaveStaleSocket();
  SingleInstance first(socket_);
  listenTo(first);
  EXPECT_EQ(first.start({}), Role::first);
  EXPECT_EQ(startAgain({"--check-prices"}), Role::second);
  EXPECT_EQ(received_, (std::vector<Arguments>{{"--check-prices"}}));
}

TEST_F(SingleInstanceTest, IgnoresWhatIsNoWholeMessage) {
  SingleInstance first(socket_);
  listenTo(first);
  ASSERT_EQ(first.start({}), Role::first);
  QLocalSocket hostile;
  hostile.connectToServer(QString::fromStdString(socket_.string()));
  hostile.write(QByteArray(1 << 20, 'x'));
  waitFor([&] { return hostile.state() == QLocalSocket::UnconnectedState; });

  QLocalSocket half;
  half.connectToServer(QString::fromStdString(socket_.string()));
  half.write("quillet-arguments 1 9\n--o");
  EXPECT_EQ(startAgain({"--section", "deals"}), Role::second) << "while another one dawdles";
  half.disconnectFromServer();
  EXPECT_EQ(startAgain({}), Role::second);
  EXPECT_EQ(received_, (std::vector<Arguments>{{"--section", "deals"}, {}}));
}

TEST_F(SingleInstanceTest, OfManyStartedAtOnceOneIsTheFirst) {
  constexpr int kStarts = 8;
  for (const bool isStale : {false, true}) {
    if (isStale) leaveStaleSocket();
    std::atomic<int> firsts = 0;
    std::atomic<int> seconds = 0;
    std::vector<std::unique_ptr<QThread>> starts;
    for (int i = 0; i < kStarts; ++i) {
      starts.emplace_back(QThread::create([&] {
        SingleInstance instance(socket_);
        QEventLoop loop;
        int heard = 0;
        QObject::connect(&instance, &SingleInstance::argumentsReceived, &loop, [&] {
          if (++heard == kStarts - 1) loop.quit();
        });
        const Role role = instance.start({"--background"});
        ++(role == Role::first ? firsts : seconds);
        QTimer::singleShot(std::chrono::seconds(20), &loop, &QEventLoop::quit);  // two firsts
        if (role == Role::first) loop.exec();
      }));
    }
    for (const auto& start : starts) start->start();
    for (const auto& start : starts) start->wait();
    EXPECT_EQ(firsts, 1);
    EXPECT_EQ(seconds, kStarts - 1);
  }
}

TEST_F(SingleInstanceTest, RunsAloneWhereNothingCanBeMade) {
  SingleInstance instance("/proc/no such place/q.socket");
  EXPECT_EQ(instance.start({}), Role::first);
}

}  // namespace
}  // namespace quillet
