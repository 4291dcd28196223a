// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/server.h"

#include <gtest/gtest.h>
#include <httplib.h>

#include "sample_answers.h"

namespace quillet::sandbox {
namespace {

constexpr const char* kSearch = "/search?term=photo%20editor&entity=macSoftware";

/// A served store, and a client of it.
class Served {
 public:
  explicit Served(const std::vector<const char*>& faults = {}) : server_(store_, options(faults)) {
    client_.set_tcp_nodelay(true);
    client_.set_read_timeout(std::chrono::milliseconds(300));
  }

  httplib::Result get(const char* path) { return client_.Get(path); }
  httplib::Client& client() { return client_; }
  [[nodiscard]] std::string address() const { return server_.address(); }

 private:
  static Server::Options options(const std::vector<const char*>& faults) {
    Server::Options result;
    for (const char* fault : faults) result.faults.push_back(parseFault(fault));
    return result;
  }

  SampleStore store_{{.apps = 100, .today = kSampleDay}};
  Server server_;
  httplib::Client client_{server_.address()};
};

TEST(Server, answersAsItIs) {
  Served served;
  const auto answer = served.get(kSearch);
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->status, 200);
  EXPECT_EQ(answer->get_header_value("Content-Type"), "text/javascript; charset=utf-8");
  EXPECT_NE(answer->body.find("Lumenfjord Photo Editor"), std::string::npos);
  EXPECT_EQ(served.get("/wrong")->status, 404);

  served.client().set_decompress(false);
  const auto offered = served.client().Get(kSearch, {{"Accept-Encoding", "br, gzip, deflate"}});
  ASSERT_TRUE(offered);
  EXPECT_FALSE(offered->has_header("Content-Encoding"));
  EXPECT_EQ(offered->body, answer->body);
}

TEST(Server, drawsThePicturesThatItNames) {
  const SampleStore store({.apps = 60, .today = kSampleDay});
  const Server server(store, {.hasPictures = true});
  httplib::Client client(server.address());
  const std::string record = client.Get("/lookup?id=824183456")->body;
  const auto start = record.find(server.address() + "/image/");
  ASSERT_NE(start, std::string::npos) << record;
  const std::string path = record.substr(start + server.address().size(),
                                         record.find('"', start) - start - server.address().size());
  const auto drawn = client.Get(path);
  EXPECT_EQ(drawn->get_header_value("Content-Type"), "image/png");
  EXPECT_TRUE(drawn->body.starts_with("\x89PNG"));
  EXPECT_EQ(client.Get(path)->body, drawn->body) << "from memory";
}

TEST(Server, takesAnotherPortThanTheUsualOneWhereThatIsTaken) {
  const SampleStore store({.apps = 0, .today = kSampleDay});
  const Server first(store, {});
  const std::string address = first.address();
  const int taken = std::stoi(address.substr(address.rfind(':') + 1));
  const Server second(store, {.usualPort = taken});
  EXPECT_NE(second.address(), address);
  EXPECT_EQ(httplib::Client(second.address()).Get("/wrong")->status, 404);
}

TEST(Server, faultsPassAndHeal) {
  Served served({"path=/search status=503 count=1", "path=/search stale count=1"});
  EXPECT_EQ(served.get("/lookup?id=824183456")->status, 200);
  EXPECT_EQ(served.get(kSearch)->status, 503);
  EXPECT_NE(served.get(kSearch)->body.find("\"2.6.4\""), std::string::npos);
  EXPECT_NE(served.get(kSearch)->body.find("\"2.6.5\""), std::string::npos);
}

TEST(Server, takesOtherFaultsWhileItServes) {
  Served served({"status=503"});
  const auto put = [&](const char* faults) {
    return served.client().Put("/faults", faults, "text/plain")->status;
  };
  EXPECT_EQ(put("path=/search status=429\npath=/lookup garbage\n"), 200);
  EXPECT_EQ(served.get(kSearch)->status, 429);
  EXPECT_NE(served.get("/lookup?id=824183456")->body.find("<html>"), std::string::npos);
  EXPECT_EQ(put("status=429 oddly"), 400);
  EXPECT_EQ(served.get(kSearch)->status, 429) << "as it was";
  EXPECT_EQ(put(""), 200);
  EXPECT_EQ(served.get(kSearch)->status, 200);
}

TEST(Server, tellsBrowsersApart) {
  Served served;
  constexpr const char* kEntry = "/api/apps/v1/catalog/us/apps/1480068668?platform=mac";
  const httplib::Headers browser{{"User-Agent", "Mozilla/5.0 (Macintosh)"}};
  EXPECT_EQ(served.client().Get(kEntry, browser)->status, 200);
  EXPECT_EQ(served.get(kEntry)->status, 429);
  const auto whole = served.get("/file/quillbase-prices/v1/changes-us.json.gz");
  EXPECT_FALSE(whole->has_header("Content-Encoding"));
  EXPECT_TRUE(whole->body.starts_with("\x1f\x8b"));
}

/// The rest of what goes wrong on the wire is what the fault matrix lives by.
TEST(Server, answersLate) {
  Served late({"delay=5000"});
  EXPECT_EQ(late.get(kSearch).error(), httplib::Error::Read);
}

TEST(Server, connectionsThatAreKeptOpenHoldNobodyElseUp) {
  const Served served;
  std::vector<std::unique_ptr<httplib::Client>> clients(40);
  for (auto& client : clients) {
    client = std::make_unique<httplib::Client>(served.address());
    client->set_keep_alive(true);
    client->set_read_timeout(std::chrono::seconds(3));  // the server keeps them open for five
    EXPECT_TRUE(client->Get("/lookup?id=824183456"));
  }
}

TEST(Server, sharesItsPortWithNobody) {
  const Served served;
  const std::string address = served.address();
  const int port = std::stoi(address.substr(address.rfind(':') + 1));
  const SampleStore store({.apps = 0, .today = kSampleDay});
  EXPECT_THROW(Server(store, {.port = port}), CannotListen);
}

}  // namespace
}  // namespace quillet::sandbox
