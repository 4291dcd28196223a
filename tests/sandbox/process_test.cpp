// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>
#include <httplib.h>
#include <sys/wait.h>

namespace quillet::sandbox {
namespace {

/// The program itself, started by a shell.
class Program {
 public:
  explicit Program(const std::string& arguments)
      : output_(::popen(("echo $$; exec " QUILLET_SANDBOX_PROGRAM " " + arguments).c_str(), "r")) {
    id_ = std::stoi(line());
  }
  ~Program() {
    if (output_ != nullptr) (void)end(SIGKILL);
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

  /// Its status; -1 when a signal killed it.
  [[nodiscard]] int status() {
    const int waited = ::pclose(std::exchange(output_, nullptr));
    return WIFEXITED(waited) ? WEXITSTATUS(waited) : -1;
  }

  [[nodiscard]] int end(int signal) {
    ::kill(id_, signal);
    return status();
  }

 private:
  std::FILE* output_;
  pid_t id_ = 0;
};

int statusOf(const std::string& arguments) { return Program(arguments).status(); }

TEST(Process, servesUntilToldToEnd) {
  for (const int signal : {SIGTERM, SIGINT}) {
    Program program("--apps 100");
    const std::string address = program.line();
    ASSERT_TRUE(address.starts_with("http://127.0.0.1:")) << address;
    const auto answer = httplib::Client(address).Get("/lookup?id=1480068668");
    ASSERT_TRUE(answer);
    EXPECT_NE(answer->body.find("Quillink"), std::string::npos);
    EXPECT_EQ(program.end(signal), 0);
  }
}

TEST(Process, runsACommandBesideTheStoreAndHandsSignalsOn) {
  ::setenv("HTTP_PROXY", "http://127.0.0.1:1", 1);
  Program program(R"(--apps 100 -- /bin/sh -c '
    trap "exit 5" INT
    echo "$QUILLET_ITUNES_URL"
    echo "$QUILLET_APP_STORE_URL"
    echo "$QUILLET_PRICE_DATA_URL"
    echo "proxy:$HTTP_PROXY"
    while :; do sleep 0.02; done')");
  ::unsetenv("HTTP_PROXY");
  const std::string address = program.line();
  EXPECT_EQ(program.line(), address);
  EXPECT_EQ(program.line(), address);
  EXPECT_EQ(program.line(), "proxy:");
  const auto answer = httplib::Client(address).Get("/search?term=notes");
  ASSERT_TRUE(answer) << address;
  EXPECT_EQ(answer->status, 200);
  EXPECT_EQ(program.end(SIGINT), 5);
  EXPECT_FALSE(httplib::Client(address).Get("/search?term=notes"));
}

TEST(Process, handsStatusesBack) {
  EXPECT_EQ(statusOf("-- /bin/sh -c 'kill -KILL $$'"), 128 + SIGKILL);
  EXPECT_EQ(statusOf("-- /bin/sh -c 'kill -PIPE $$'"), 128 + SIGPIPE);
  EXPECT_EQ(statusOf("-- /no/such/program"), 127);
  EXPECT_EQ(statusOf("-- /"), 126);
  EXPECT_EQ(statusOf("--fault path=/search"), 2);
}

}  // namespace
}  // namespace quillet::sandbox
