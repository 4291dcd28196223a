// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/urls.h"
#include "fuzzing.h"
#include "updates/release_list.h"

using namespace quillet;

void quillet::tryInput(std::string_view input) {
  readOrRefuse([&] {
    const auto release = newestRelease(std::string(input));
    if (!release) return;
    require(!release->version.empty() && release->version.size() <= 32, "a version is short");
    require(release->version.find_first_not_of("0123456789.") == std::string::npos,
            "a version has numbers and dots");
    require(release->page.starts_with("https://") && isWebAddress(release->page),
            "a page can be opened in a browser");
    require(release->day.empty() || release->day.size() == 10, "a day is a day");
    require(isValidUtf8(release->notes), "notes can be shown");
  });
}
