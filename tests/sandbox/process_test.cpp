// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>
#include <httplib.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillet::sandbox {
namespace {

/// The program itself, its standard input and output in our hands.
class Program {
 public:
  explicit Program(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), QUILLET_SANDBOX_PROGRAM);
    int in[2];
    int out[2];
    if (::pipe2(in, O_CLOEXEC) != 0 || ::pipe2(out, O_CLOEXEC) != 0) std::abort();
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, in[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    ::posix_spawn(&id_, pointers[0], &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(in[0]);
    ::close(out[1]);
    input_ = ::fdopen(in[1], "w");
    output_ = ::fdopen(out[0], "r");
  }
  ~Program() {
    if (id_ > 0) (void)end(SIGKILL);
    std::fclose(input_);
    std::fclose(output_);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  /// The next line of its output without the line feed; empty at the end.
  [[nodiscard]] std::string line() {
    std::array<char, 1000> buffer{};
    if (!std::fgets(buffer.data(), buffer.size(), output_)) return {};
    std::string text = buffer.data();
    if (text.ends_with('\n')) text.pop_back();
    return text;
  }

  void type(const char* text) {
    std::fputs(text, input_);
    std::fflush(input_);
  }

  /// Its status; -1 when a signal killed it.
  [[nodiscard]] int status() {
    int waited = 0;
    ::waitpid(std::exchange(id_, 0), &waited, 0);
    return WIFEXITED(waited) ? WEXITSTATUS(waited) : -1;
  }

  [[nodiscard]] int end(int signal) {
    ::kill(id_, signal);
    return status();
  }

 private:
  pid_t id_ = 0;
  std::FILE* input_ = nullptr;
  std::FILE* output_ = nullptr;
};

int statusOf(std::vector<std::string> arguments) { return Program(std::move(arguments)).status(); }

TEST(Process, servesUntilToldToEnd) {
  for (const int signal : {SIGTERM, SIGINT}) {
    Program program({"--apps", "100"});
    const std::string address = program.line();
    ASSERT_TRUE(address.starts_with("http://127.0.0.1:")) << address;
    const auto answer = httplib::Client(address).Get("/lookup?id=1480068668");
    ASSERT_TRUE(answer);
    EXPECT_NE(answer->body.find("Quillink"), std::string::npos);
    EXPECT_EQ(program.end(signal), 0);
    EXPECT_EQ(program.line(), "");
  }
}

TEST(Process, runsACommandBesideTheStore) {
  ::setenv("HTTP_PROXY", "http://127.0.0.1:1", 1);
  constexpr const char* kScript = R"(
    echo "$QUILLET_ITUNES_URL"
    echo "$QUILLET_APP_STORE_URL"
    echo "$QUILLET_PRICE_DATA_URL"
    echo "proxy:$HTTP_PROXY"
    read word
    exit "$word")";
  Program program({"--apps", "100", "--", "/bin/sh", "-c", kScript});
  ::unsetenv("HTTP_PROXY");
  const std::string address = program.line();
  EXPECT_EQ(program.line(), address);
  EXPECT_EQ(program.line(), address);
  EXPECT_EQ(program.line(), "proxy:");
  const auto answer = httplib::Client(address).Get("/search?term=notes");
  ASSERT_TRUE(answer) << address;
  EXPECT_EQ(answer->status, 200);
  program.type("7\n");
  EXPECT_EQ(program.status(), 7);
  EXPECT_FALSE(httplib::Client(address).Get("/search?term=notes"));
}

TEST(Process, handsSignalsOnAndStatusesBack) {
  Program trapping(
      {"--", "/bin/sh", "-c", "trap 'exit 5' INT; echo ready; while :; do sleep 0.02; done"});
  EXPECT_EQ(trapping.line(), "ready");
  EXPECT_EQ(trapping.end(SIGINT), 5);
  EXPECT_EQ(statusOf({"--", "/bin/sh", "-c", "kill -KILL $$"}), 128 + SIGKILL);
  EXPECT_EQ(statusOf({"--", "/bin/sh", "-c", "kill -PIPE $$"}), 128 + SIGPIPE);
  EXPECT_EQ(statusOf({"--", "/no/such/program"}), 127);
  EXPECT_EQ(statusOf({"--", "/"}), 126);
}

TEST(Process, badCommandLinesEndAtOnce) {
  EXPECT_EQ(statusOf({"--fault", "path=/search"}), 2);
  EXPECT_EQ(statusOf({"--nothing"}), 2);
}

}  // namespace
}  // namespace quillet::sandbox
