// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sandbox/request.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// One row of the table of all that the store answers.
struct Endpoint {
  /// A path in which "{}" stands for one part, or the rest of one, as in "/{}/app/id{}", and a "*"
  /// at the end for whatever follows.
  std::string_view pattern;
  Answer (*answer)(const SampleStore&, const Request&);
};

[[nodiscard]] std::span<const Endpoint> endpoints();

/// What stands for each "{}" and the "*" of the pattern; absent when the path is another.
[[nodiscard]] std::optional<std::vector<std::string>> captured(std::string_view pattern,
                                                               std::string_view path);

/// The answer of the first endpoint whose pattern fits; 404 when none does.
[[nodiscard]] Answer answerTo(const SampleStore& store, Request request);

}  // namespace quillet::sandbox
