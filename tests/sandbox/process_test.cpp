// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>
#include <httplib.h>

#include "support/place.h"
#include "support/program.h"

namespace quillet::sandbox {
namespace {

/// The program itself.
class Sandbox : public Program {
 public:
  explicit Sandbox(const std::string& arguments)
      : Program("exec " + placeOf(QUILLET_SANDBOX_PROGRAM) + " " + arguments) {}
};

TEST(Process, servesUntilToldToEnd) {
  for (const int signal : {SIGTERM, SIGINT}) {
    Sandbox program("--apps 100");
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
  Sandbox program(R"(--apps 100 -- /bin/sh -c '
    trap "exit 5" INT
    echo "$QUILLET_ITUNES_URL"
    echo "$QUILLET_APP_STORE_URL $QUILLET_PRICE_DATA_URL proxy:$HTTP_PROXY"
    while :; do sleep 0.02; done')");
  ::unsetenv("HTTP_PROXY");
  const std::string address = program.line();
  EXPECT_EQ(program.line(), address + ' ' + address + " proxy:");
  const auto answer = httplib::Client(address).Get("/search?term=notes");
  ASSERT_TRUE(answer) << address;
  EXPECT_EQ(answer->status, 200);
  EXPECT_EQ(program.end(SIGINT), 5);
  EXPECT_FALSE(httplib::Client(address).Get("/search?term=notes"));
}

TEST(Process, handsStatusesBack) {
  EXPECT_EQ(Sandbox("-- /bin/sh -c 'kill -KILL $$'").status(), 128 + SIGKILL);
  EXPECT_EQ(Sandbox("-- /bin/sh -c 'kill -PIPE $$'").status(), 128 + SIGPIPE);
  EXPECT_EQ(Sandbox("-- /no/such/program").status(), 127);
  EXPECT_EQ(Sandbox("-- /").status(), 126);
  EXPECT_EQ(Sandbox("--fault path=/search").status(), 2);
}

}  // namespace
}  // namespace quillet::sandbox
