// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

#include "cli/online/app/info_result.h"
#include "cli/streams.h"

namespace quillet {

/// "Mac", "iPhone", "iPad".
[[nodiscard]] std::string_view platformName(Platform platform);

/// A page for people: a heading, labelled facts, what is sold inside, the description, the notes of
/// the current version and the latest releases. Running text is wrapped to a readable width; what
/// is cut says so.
[[nodiscard]] std::string renderInfoText(const CLIAppDetail& detail, const LocaleFormats& formats,
                                         const TextStyle& style);

}  // namespace quillet
