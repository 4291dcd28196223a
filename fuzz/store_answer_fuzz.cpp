// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <algorithm>

#include "fuzzing.h"
#include "store/records/itunes_app_json.h"

using namespace quillet;

void quillet::tryInput(std::string_view input) {
  readOrRefuse([input] {
    const std::string answer(input);
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
  });
}
