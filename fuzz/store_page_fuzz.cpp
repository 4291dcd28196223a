// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "fuzzing.h"
#include "store/records/chart_answers.h"
#include "store/records/embedded_document.h"
#include "store/records/full_size_picture.h"
#include "store/records/product_page.h"

using namespace quillet;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view html = textOf(data, size);
  const auto json = embeddedJson(html);
  require(!json || html.find(*json) != std::string_view::npos, "the data is part of the page");
  for (const ChartType chart : {ChartType::topFree, ChartType::topPaid}) {
    for (const std::int64_t id : decodeChartPage(html, chart)) require(id > 0, "an ID is positive");
  }
  try {
    for (const std::string& address : decodeProductPage(html).macScreenshots) {
      require(isValidUtf8(fullSizeAddress(address)), "an address is valid UTF-8");
    }
  } catch (const UnreadablePage& error) {
    require(isValidUtf8(error.what()), "a refusal is valid UTF-8");
  }
  return 0;
}
