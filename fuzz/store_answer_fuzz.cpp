// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/errors.h"
#include "fuzzing.h"
#include "store/records/itunes_app_json.h"

using namespace quillet;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    for (const ITunesApp& app : decodeSearchResponse(std::string(textOf(data, size)))) {
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
