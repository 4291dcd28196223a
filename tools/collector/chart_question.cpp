// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/chart_question.h"

#include <fmt/format.h>

#include "base/errors.h"
#include "base/text.h"

namespace quillet {

namespace {

constexpr std::string_view kChart = "chart";
constexpr std::string_view kSearch = "search";

/// The text up to the next blank, which leaves `text`.
std::string_view wordOff(std::string_view& text) {
  const std::string_view word = text.substr(0, text.find(' '));
  text.remove_prefix(std::min(word.size() + 1, text.size()));
  return word;
}

}  // namespace

std::string stored(const ChartQuestion& question) {
  const std::string_view platform = textOf(kPlatformWords, question.platform);
  if (!question.term.empty()) return fmt::format("{} {} {}", kSearch, platform, question.term);
  return fmt::format("{} {} {}", kChart, platform, textOf(kChartTypeWords, question.chart));
}

ChartQuestion chartQuestionIn(const std::string& text) {
  std::string_view rest = text;
  const std::string_view kind = wordOff(rest);
  const auto platform = valueOf(kPlatformWords, wordOff(rest));
  if (platform && kind == kSearch && !rest.empty())
    return {.platform = *platform, .term = std::string(rest)};
  const auto chart = valueOf(kChartTypeWords, rest);
  if (!platform || kind != kChart || !chart)
    throw DecodingError(fmt::format("The record's question '{}' is unknown.", printable(text)));
  return {.platform = *platform, .chart = *chart};
}

std::string nameOf(const ChartQuestion& question, const std::string& country) {
  const std::string what = question.term.empty()
                               ? fmt::format("chart {}", textOf(kChartTypeWords, question.chart))
                               : fmt::format("search '{}'", question.term);
  return fmt::format("{} ({}, {})", what, textOf(kPlatformWords, question.platform), country);
}

std::string nameOfStored(const std::string& text, const std::string& country) {
  try {
    return nameOf(chartQuestionIn(text), country);
  } catch (const DecodingError&) {
    return printable(text);
  }
}

}  // namespace quillet
