// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "store/records/chart_type.h"
#include "store/records/platform.h"

namespace quillet {

/// A question to a storefront that finds apps: what is in a chart, or, where there is a term, what
/// the search for it finds.
struct ChartQuestion {
  Platform platform = Platform::mac;
  ChartType chart = ChartType::topFree;
  std::string term = {};
};

/// As the record holds it: "chart mac top-free", "search ipad ink pen". Stored; never change.
[[nodiscard]] std::string stored(const ChartQuestion& question);

/// The question that stored() made the text of. Throws DecodingError for any other.
[[nodiscard]] ChartQuestion chartQuestionIn(const std::string& text);

/// For people: "chart top-free (mac, us)", "search 'ink pen' (ipad, us)".
[[nodiscard]] std::string nameOf(const ChartQuestion& question, const std::string& country);

/// That of the question that the text says; the text itself where it says none.
[[nodiscard]] std::string nameOfStored(const std::string& text, const std::string& country);

}  // namespace quillet
