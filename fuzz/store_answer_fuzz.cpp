// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <algorithm>

#include "base/errors.h"
#include "fuzzing.h"
#include "store/records/itunes_app_json.h"

using namespace quillet;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const std::string answer(textOf(data, size));
    const auto apps = decodeSearchResponse(answer);
    const auto listed = decodeSearchResponse(answer, AppDetail::listing);
    require(std::ranges::equal(apps, listed, {}, &ITunesApp::trackId, &ITunesApp::trackId),
            "a listing has the same apps");
    for (const ITunesApp& app : apps) {
      JsonWriter writer;
      writeApp(writer, app);
      const std::string written = writer.take();
      const JsonDocument document(written);
      require(decodeApp(document.root()) == app, "an app reads back as it was written");
    }
  } catch (const DecodingError&) {
    return 0;  // the documented end of an answer that is none
  }
  return 0;
}
