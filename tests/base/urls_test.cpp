// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/urls.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(Urls, CarryTheItemsInTheirOrderEncoded) {
  EXPECT_EQ(buildUrl("https://a.example", "/search",
                     {{"term", "notes & más + 100%"}, {"id", "1,2"}, {"a/b", "=?#"}, {"e", ""}}),
            "https://a.example/search?term=notes%20%26%20m%C3%A1s%20%2B%20100%25&id=1,2"
            "&a%2Fb=%3D%3F%23&e=");
  EXPECT_EQ(buildUrl("https://a.example", "/x", {}), "https://a.example/x");
  EXPECT_EQ(percentEncoded(std::string_view("-._~,\0\xFF", 7)), "-._~,%00%FF");
}

TEST(Urls, AreSecureOverHttpsWithAHostAndNoName) {
  for (const char* good : {"https://a.example", "https://a.example:8443/x?y=@#z"})
    EXPECT_TRUE(isSecureAddress(good)) << good;
  for (const char* bad :
       {"", "https://", "https:///x", "https://:80/", "http://a.example", "javascript:alert(1)",
        "https://bank.example@a.example/", "https://a.example/ x", "https://a\n.example",
        "file:///etc/passwd", "HTTPS//a.example"})
    EXPECT_FALSE(isSecureAddress(bad)) << bad;
}

}  // namespace
}  // namespace quillet
