// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

#include "publisher/gzip_file.h"
#include "support/command_line_test.h"

namespace quillet {

/// Command lines that read published prices.
class PublishedPricesTest : public CommandLineTest {
 protected:
  static std::string priceFile(std::string_view country) {
    return fmt::format("https://prices.example/file/quillbase-prices/v1/changes-{}.json.gz",
                       country);
  }
  const std::string manifest = "https://prices.example/file/quillbase-prices/v1/manifest.json";

  /// Publishes apps, given as JSON, in the us storefront, and that the store was last asked then.
  void publish(const std::vector<std::string_view>& apps,
               std::string_view looked = "2026-11-20T03:00:00Z") {
    publishFile(apps);
    http.answer(manifest, 200,
                fmt::format(R"({{"schema":1,"storefronts":[{{"country":"gb"}},
                  {{"country":"us","lookedAt":"{}"}}]}})",
                            looked));
  }
  /// Without the manifest.
  void publishFile(const std::vector<std::string_view>& apps) {
    http.answer(priceFile("us"), 200,
                gzipped(fmt::format(R"({{"schema":1,"generatedAt":"2026-11-20T03:00:00Z",
                  "storefront":{{"country":"us","apps":[{}]}}}})",
                                    fmt::join(apps, ","))));
  }
};

}  // namespace quillet
