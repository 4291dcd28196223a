// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/single_instance.h"

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QLocalSocket>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <memory>

#include "desktop/services/instance_message.h"
#include "desktop/services/instance_socket.h"
#include "net/run_task.h"
#include "net/worker.h"
#include "support/event_loop.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;
using Arguments = std::vector<std::string>;
using Start = std::variant<InstanceClaim, HandedOver, Unanswered>;

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

/// The application of the folder, and what it hears.
class First {
 public:
  explicit First(InstanceClaim claim) : instance_(std::move(claim)) {
    QObject::connect(&instance_, &SingleInstance::argumentsReceived, &instance_,
                     [this](const Arguments& arguments) { heard.push_back(arguments); });
  }
  SingleInstance* operator->() { return &instance_; }

  std::vector<Arguments> heard;

 private:
  SingleInstance instance_;
};

/// A later start of which each step is seen.
struct LaterStart {
  explicit LaterStart(const fs::path& at) {
    QObject::connect(&socket, &QLocalSocket::readyRead, &socket,
                     [this] { answers += socket.readAll().toStdString(); });
    socket.connectToServer(QString::fromStdString(at));
    socket.write(QByteArray::fromStdString(*instanceMessage({"--open", "7"})));
  }

  QLocalSocket socket;
  std::string answers;
};

class SingleInstanceTest : public testing::Test {
 protected:
  Start claim(const Arguments& arguments = {}) const {
    return claimInstance(folder_.path() / "data", folder_.path(), arguments);
  }
  First startFirst() const { return First(std::get<InstanceClaim>(claim())); }

  /// A later start; on a thread since it waits for the first.
  static Task<std::shared_ptr<Start>> startAgain(fs::path data, fs::path runtime,
                                                 Arguments arguments) {
    return onWorker(
        [data = std::move(data), runtime = std::move(runtime), arguments = std::move(arguments)] {
          return std::make_shared<Start>(claimInstance(data, runtime, arguments));
        });
  }
  Task<std::shared_ptr<Start>> startAgain(Arguments arguments = {}) const {
    return startAgain(folder_.path() / "data", folder_.path(), std::move(arguments));
  }
  bool isHandedOver(Arguments arguments = {}) const {
    return std::holds_alternative<HandedOver>(*runTask(startAgain(std::move(arguments))));
  }

  TemporaryFolder folder_;
};

TEST_F(SingleInstanceTest, ALaterStartHandsItsArgumentsOver) {
  First first = startFirst();
  first->serve(Windows::possible);
  EXPECT_TRUE(isHandedOver({"--open", "7"}));
  EXPECT_TRUE(isHandedOver({std::string(70000, 'x')}));
  EXPECT_EQ(first.heard, (std::vector<Arguments>{{"--open", "7"}, {}}));
}

TEST_F(SingleInstanceTest, WhoAsksForAWindowIsToldWhereNoneCanBe) {
  First first = startFirst();
  first->serve(Windows::impossible);
  EXPECT_TRUE(std::get<HandedOver>(*runTask(startAgain({"--check-prices"}))).lacksWindow);
  EXPECT_FALSE(std::get<HandedOver>(*runTask(startAgain({"--background"}))).lacksWindow);
  EXPECT_EQ(first.heard.size(), 2U);
}

TEST_F(SingleInstanceTest, ArgumentsWaitUntilTheyCanBeServed) {
  auto claimed = std::get<InstanceClaim>(claim());
  LaterStart early(claimed.socket());
  LaterStart impatient(claimed.socket());
  First first(std::move(claimed));
  waitFor([&] { return early.answers == "." && impatient.answers == "."; });
  EXPECT_TRUE(first.heard.empty());
  impatient.socket.abort();
  waitFor([&] { return impatient.socket.state() == QLocalSocket::UnconnectedState; });
  handlePendingEvents();
  first->serve(Windows::possible);
  waitFor([&] { return early.answers == ".+"; });
  EXPECT_EQ(first.heard, (std::vector<Arguments>{{"--open", "7"}}));
}

TEST_F(SingleInstanceTest, WhoMeetsAnEndingOneIsTheNext) {
  auto claimed = std::get<InstanceClaim>(claim());
  LaterStart dropped(claimed.socket());
  auto first = std::make_unique<First>(std::move(claimed));
  waitFor([&] { return dropped.answers == "."; });
  (*first)->close();
  waitFor([&] { return dropped.socket.state() == QLocalSocket::UnconnectedState; });
  EXPECT_EQ(dropped.answers, ".") << "not taken, so not lost";

  Task<std::shared_ptr<Start>> waiting = startAgain();
  first.reset();
  const auto next = runTask(std::move(waiting));
  ASSERT_TRUE(std::holds_alternative<InstanceClaim>(*next));
  First second(std::get<InstanceClaim>(std::move(*next)));
  second->serve(Windows::possible);
  EXPECT_TRUE(isHandedOver());
}

TEST_F(SingleInstanceTest, OneFolderIsOneApplicationWhateverItIsCalled) {
  const fs::path folder = folder_.path();
  const fs::path deep = folder / std::string(200, 'd') / "data";
  fs::create_directories(deep);
  fs::create_directory_symlink(deep, folder / "link");
  fs::create_directories(folder / "other");
  struct Row {
    fs::path first;
    fs::path runtime;
    fs::path second;
    fs::path secondRuntime;
  };
  const fs::path none;
  for (const Row& row :
       {Row{deep, folder, folder / "link", folder}, Row{deep, none, folder / "link", none},
        Row{folder / "link", none, deep, folder},
        Row{folder / "link/", folder, deep / "../data", "relative"}}) {
    First first(std::get<InstanceClaim>(claimInstance(row.first, row.runtime, {})));
    first->serve(Windows::possible);
    const auto again = runTask(startAgain(row.second, row.secondRuntime, {"--open", "7"}));
    EXPECT_TRUE(std::holds_alternative<HandedOver>(*again)) << row.first << row.second;
    EXPECT_EQ(first.heard.size(), 1U);
    const auto elsewhere = claimInstance(folder / "other", row.runtime, {});
    EXPECT_TRUE(std::holds_alternative<InstanceClaim>(elsewhere));
  }
}

TEST_F(SingleInstanceTest, TakesOverWhatACrashOrAnEndLeftBehind) {
  const fs::path socket = std::get<InstanceClaim>(claim()).socket();
  EXPECT_FALSE(fs::exists(socket)) << "removed at the end";
  (void)listenAt(socket);  // to which nobody listens any more
  ASSERT_TRUE(fs::exists(socket));
  First first = startFirst();
  EXPECT_EQ(fs::status(socket).permissions() & fs::perms(0077), fs::perms::none);
  first->serve(Windows::possible);
  EXPECT_TRUE(isHandedOver());
  const auto nowhere = claimInstance("/proc/no such place", {}, {});
  EXPECT_TRUE(std::holds_alternative<InstanceClaim>(nowhere)) << "nothing can be made there";
}

TEST_F(SingleInstanceTest, IgnoresWhatIsNoWholeMessage) {
  auto claimed = std::get<InstanceClaim>(claim());
  const QString socket = QString::fromStdString(claimed.socket());
  First first(std::move(claimed));
  first->serve(Windows::possible);
  QLocalSocket hostile;
  hostile.connectToServer(socket);
  hostile.write(QByteArray(1 << 20, 'x'));
  waitFor([&] { return hostile.state() == QLocalSocket::UnconnectedState; });

  QLocalSocket half;
  half.connectToServer(socket);
  half.write("quillet-arguments 1 9\n--o");
  EXPECT_TRUE(isHandedOver({"--section", "deals"})) << "while another one dawdles";
  half.disconnectFromServer();
  EXPECT_TRUE(isHandedOver());
  EXPECT_EQ(first.heard, (std::vector<Arguments>{{"--section", "deals"}, {}}));
}

TEST_F(SingleInstanceTest, OfManyStartedAtOnceOneIsTheFirst) {
  constexpr int kStarts = 8;
  std::atomic<int> firsts = 0;
  std::atomic<int> heard = 0;
  std::vector<std::unique_ptr<QThread>> starts;
  for (int i = 0; i < kStarts; ++i) {
    starts.emplace_back(QThread::create([&] {
      auto start = claim();
      if (!std::holds_alternative<InstanceClaim>(start)) return;
      ++firsts;
      SingleInstance instance(std::get<InstanceClaim>(std::move(start)));
      QEventLoop loop;
      QObject::connect(&instance, &SingleInstance::argumentsReceived, &loop, [&] {
        if (++heard == kStarts - 1) loop.quit();
      });
      QTimer::singleShot(std::chrono::seconds(20), &loop, &QEventLoop::quit);  // two firsts
      instance.serve(Windows::possible);
      loop.exec();
    }));
  }
  for (const auto& start : starts) start->start();
  for (const auto& start : starts) start->wait();
  EXPECT_EQ(firsts, 1);
  EXPECT_EQ(heard, kStarts - 1);
}

}  // namespace
}  // namespace quillet
