// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "fuzzing.h"
#include "store/records/chart_answers.h"
#include "store/records/embedded_document.h"
#include "store/records/product_page.h"
#include "store/records/sized_picture.h"

using namespace quillet;

void quillet::tryInput(std::string_view input) {
  const auto json = embeddedJson(input);
  require(!json || input.find(*json) != std::string_view::npos, "the data is part of the page");
  for (const ChartType chart : {ChartType::topFree, ChartType::topPaid}) {
    for (const std::int64_t id : decodeChartPage(input, chart))
      require(id > 0, "an ID is positive");
  }
  readOrRefuse<UnreadablePage>([input] {
    for (const std::string& address : decodeProductPage(input).macScreenshots) {
      require(isValidUtf8(fullSizeAddress(address)), "an address is valid UTF-8");
    }
  });
}
