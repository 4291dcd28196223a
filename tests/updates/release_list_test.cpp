// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "updates/release_list.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "support/message_of.h"

namespace quillet {
namespace {

TEST(ReleaseList, GivesTheHighestVersionWithWhatIsSaidOfIt) {
  EXPECT_EQ(newestRelease(R"({"releases": [
      {"version": "1.9", "page": "https://q.example/1.9"},
      {"version": "1.10", "date": "2026-11-20", "notes": "Two\n\u001b[31mlines\u202e",
       "page": "https://q.example/1.10", "binary": "https://q.example/run-me"},
      {"version": "1.10.0", "page": "https://q.example/again"}], "more": 1})"),
            (Release{"1.10", "2026-11-20", "Two\n[31mlines", "https://q.example/1.10"}));
  EXPECT_EQ(newestRelease(R"({"releases": []})"), std::nullopt);
}

TEST(ReleaseList, IsReadWholeOrNotAtAll) {
  const auto with = [](const std::string& release) {
    return R"({"releases": [{"version": "9", "page": "https://q.example"}, )" + release + "]}";
  };
  const std::string page = R"("page": "https://q.example")";
  const std::string version = R"("version": "2")";
  struct Row {
    std::string list;
    const char* says;
  };
  for (const Row& row : {
           Row{"[]", "it is no object"},
           {"{}", "'releases' is no list"},
           {with("3"), "a release is no object"},
           {with("{" + page + "}"), "a 'version' is no version"},
           {with("{\"version\": \"2<b>\", " + page + "}"), "a 'version' is no version"},
           {with("{\"version\": \"" + std::string(33, '1') + "\", " + page + "}"),
            "a 'version' is no version"},
           {with("{" + version + "}"), "a 'page' is no https address"},
           {with("{" + version + R"(, "page": "http://q.example"})"),
            "a 'page' is no https address"},
           {with("{" + version + R"(, "page": "https://good.example@bad.example"})"),
            "a 'page' is no https address"},
           {with("{" + version + ", " + page + R"(, "date": "2026-02-30"})"), "a 'date' is no day"},
           {with("{" + version + ", " + page + ", \"notes\": \"" + std::string(20'001, 'n') +
                 "\"}"),
            "'notes' are too long"},
           {std::string(kLargestReleaseList + 1, ' '), "it is too large"},
       }) {
    EXPECT_EQ(messageOf<DecodingError>([&] { (void)newestRelease(row.list); }), row.says);
  }
}

}  // namespace
}  // namespace quillet
