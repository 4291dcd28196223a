// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "base/enum_table.h"
#include "collector/published_status.h"
#include "collector/record_status.h"

namespace quillet {

/// What somebody has to do something about. The words are told to other programs; never change.
enum class Problem {
  noRound,
  overdue,
  failedLookups,
  failedQuestions,
  gaveUp,
  notPublished,
  publicationLags
};

inline constexpr EnumTable<Problem, 7> kProblemWords{{
    {Problem::noRound, "noRound"},
    {Problem::overdue, "overdue"},
    {Problem::failedLookups, "failedLookups"},
    {Problem::failedQuestions, "failedQuestions"},
    {Problem::gaveUp, "gaveUp"},
    {Problem::notPublished, "notPublished"},
    {Problem::publicationLags, "publicationLags"},
}};
static_assert(isComplete(kProblemWords, Problem::publicationLags));

struct FoundProblem {
  Problem problem;
  std::string text;  ///< a sentence for people
};

/// How it stands with a record and what is published of it.
struct StatusReport {
  Instant now;
  RecordStatus record;
  PublishedStatus published;
  std::optional<Instant> nextDue;  ///< absent while a round is under way, and where it is not known
  std::vector<FoundProblem> problems;
};

/// `every`: how often rounds begin; zero: not known.
[[nodiscard]] StatusReport reportOn(RecordStatus record, PublishedStatus published,
                                    std::chrono::hours every, Instant now);

/// How long ago the last round ended in which nothing failed.
[[nodiscard]] std::optional<std::chrono::milliseconds> lagOf(const StatusReport& report);

}  // namespace quillet
