// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/single_instance.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QEventLoop>
#include <QLocalSocket>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <memory>

#include "desktop/instance_message.h"
#include "net/run_task.h"
#include "net/worker.h"
#include "support/event_loop.h"
#include "support/map_environment.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;
using Role = SingleInstance::Role;
using Arguments = std::vector<std::string>;

TEST(InstanceMessage, IsReadWhenAllOfItIsThere) {
  for (const Arguments& arguments :
       {Arguments{}, Arguments{""}, Arguments{"--open", "", "two\nlines é"},
        Arguments{std::string(65535, 'x')}}) {
    EXPECT_EQ(std::get<Arguments>(readInstanceMessage(*instanceMessage(arguments))), arguments);
  }
  EXPECT_EQ(instanceMessage({std::string(65536, 'x')}), std::nullopt);
  const std::string whole = *instanceMessage({"--open", "x"});
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_EQ(readInstanceMessage(whole.substr(0, size)).index(), 0U) << size;
  }
  for (const char* length : {"", "-1", "65537", "000005"}) {
    const std::string received = std::string("quillet-arguments 1 ") + length + '\n';
    EXPECT_EQ(readInstanceMessage(received).index(), 1U) << received;
  }
  for (const std::string& bad :
       {std::string("GET / HTTP/1.1\r\n"), whole + 'x', std::string("quillet-arguments 1 2\nab")}) {
    EXPECT_EQ(readInstanceMessage(bad).index(), 1U) << bad;
  }
}

TEST(InstanceSocket, BelongsToTheDataDirectory) {
  const TemporaryFolder runtime;
  const std::string folder = runtime.path();
  const auto socket = [](const char* data, const std::string& runtimeDirectory) {
    return instanceSocket(MapEnvironment({{"XDG_RUNTIME_DIR", runtimeDirectory}}),
                          {.dataDirectory = data});
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
    return runTask(
        onWorker([this, arguments] { return SingleInstance(socket_).start(arguments); }));
  }

  /// Starts the first one, and notes what it hears.
  void startFirst() {
    QObject::connect(&first_, &SingleInstance::argumentsReceived, &first_,
                     [this](const Arguments& arguments) { received_.push_back(arguments); });
    EXPECT_EQ(first_.start({"--background"}), Role::first);
  }

  /// A socket file to which nobody listens any more.
  void leaveStaleSocket() const {
    fs::create_directories(socket_.parent_path());
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    socket_.string().copy(address.sun_path, sizeof address.sun_path - 1);
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(descriptor);
  }

  TemporaryFolder folder_;
  fs::path socket_ = folder_.path() / "data" / "q.socket";
  SingleInstance first_{socket_};
  std::vector<Arguments> received_;
};

TEST_F(SingleInstanceTest, ALaterStartHandsItsArgumentsOver) {
  startFirst();
  EXPECT_EQ(fs::status(socket_).permissions() & fs::perms(0077), fs::perms::none);
  EXPECT_EQ(startAgain({"--open", "7"}), Role::second);
  EXPECT_EQ(startAgain({std::string(70000, 'x')}), Role::second);
  EXPECT_EQ(received_, (std::vector<Arguments>{{"--open", "7"}, {}}));
}

TEST_F(SingleInstanceTest, TakesOverWhatACrashOrAnEndLeftBehind) {
  EXPECT_EQ(startAgain({}), Role::first);
  EXPECT_FALSE(fs::exists(socket_));
  leaveStaleSocket();
  startFirst();
  EXPECT_EQ(startAgain({}), Role::second);
  const fs::path nowhere = "/proc/no such place/q.socket";
  EXPECT_EQ(SingleInstance(nowhere).start({}), Role::first) << "nothing can be made there";
}

TEST_F(SingleInstanceTest, IgnoresWhatIsNoWholeMessage) {
  startFirst();
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
    std::atomic<int> heard = 0;
    std::vector<std::unique_ptr<QThread>> starts;
    for (int i = 0; i < kStarts; ++i) {
      starts.emplace_back(QThread::create([&] {
        SingleInstance instance(socket_);
        if (instance.start({}) != Role::first) return;
        ++firsts;
        QEventLoop loop;
        QObject::connect(&instance, &SingleInstance::argumentsReceived, &loop, [&] {
          if (++heard == kStarts - 1) loop.quit();
        });
        QTimer::singleShot(std::chrono::seconds(20), &loop, &QEventLoop::quit);  // two firsts
        loop.exec();
      }));
    }
    for (const auto& start : starts) start->start();
    for (const auto& start : starts) start->wait();
    EXPECT_EQ(firsts, 1);
    EXPECT_EQ(heard, kStarts - 1);
  }
}

}  // namespace
}  // namespace quillet
