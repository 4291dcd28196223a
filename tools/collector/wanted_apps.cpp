// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/wanted_apps.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>

#include "base/errors.h"
#include "base/numbers.h"
#include "base/text.h"
#include "collector/chart_question.h"
#include "collector/lookup_queue.h"
#include "store/itunes_client.h"

namespace quillet {

namespace {

/// IDs that one statement adds: a server is asked a thousand times less, and no statement is long.
constexpr std::size_t kIdsInStatement = 1000;

std::vector<LookupRequest> questionsOf(const WantedApps& wanted) {
  std::vector<LookupRequest> questions;
  for (const std::string& country : wanted.storefronts) {
    const auto add = [&](const ChartQuestion& question) {
      questions.push_back({country, {}, stored(question)});
    };
    for (const auto& [platform, word] : kPlatformWords) {
      for (const auto& [chart, text] : kChartTypeWords) {
        if (wanted.wantsCharts) add({platform, chart});
      }
      for (const std::string& term : wanted.searches) add({.platform = platform, .term = term});
    }
  }
  return questions;
}

/// Pieces of the list, `size` long but for the last.
std::vector<std::span<const std::int64_t>> piecesOf(const std::vector<std::int64_t>& ids,
                                                    std::size_t size) {
  std::vector<std::span<const std::int64_t>> pieces;
  const std::span all(ids);
  for (std::size_t start = 0; start < all.size(); start += size)
    pieces.push_back(all.subspan(start, std::min(size, all.size() - start)));
  return pieces;
}

std::vector<std::int64_t> wantedIds(SqlTransaction& transaction) {
  std::vector<std::int64_t> ids;
  transaction.each("SELECT track_id FROM wanted ORDER BY track_id", {},
                   [&](const SqlRow& row) { ids.push_back(row.integer(0)); });
  return ids;
}

std::vector<std::string> storefrontsOf(SqlTransaction& transaction, std::int64_t round) {
  std::string list;
  transaction.each("SELECT storefronts FROM rounds WHERE id = $1", {round},
                   [&](const SqlRow& row) { list = row.text(0); });
  const std::vector<std::string_view> storefronts = split(list, ',');
  return {storefronts.begin(), storefronts.end()};
}

/// Returns how many there are. Only the IDs lie in memory all at once.
std::int64_t makeLookups(SqlTransaction& transaction, std::int64_t round) {
  const std::vector<std::int64_t> ids = wantedIds(transaction);
  std::int64_t lookups = 0;
  for (const std::string& country : storefrontsOf(transaction, round)) {
    for (const auto& piece : piecesOf(ids, kLookupBatch)) {
      addLookups(transaction, round, lookups + 1, {{country, {piece.begin(), piece.end()}}});
      ++lookups;
    }
  }
  return lookups;
}

/// Of the questions, and out of the way of the lookups' numbers.
void keepFailed(SqlTransaction& transaction) {
  keepFailedLookups(transaction);
  transaction.run("UPDATE lookups SET number = -number");
}

void takeBack(SqlTransaction& transaction, std::int64_t round) {
  transaction.run("DELETE FROM lookups");
  transaction.run("DELETE FROM rounds WHERE id = $1", {round});
}

}  // namespace

std::vector<std::int64_t> parseIds(std::string_view text, const std::string& file) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  std::vector<std::int64_t> ids;
  int number = 0;
  for (const std::string_view line : split(text, '\n')) {
    ++number;
    const std::string_view word = trimmed(line.substr(0, line.find('#')));
    if (word.empty()) continue;
    const auto id = parseWhole(word);
    if (!id || *id <= 0) {
      throw BadSetting(
          fmt::format("{}, line {}: '{}' is no track ID", file, number, printable(word)));
    }
    ids.push_back(*id);
  }
  return ids;
}

void beginPreparation(SqlTransaction& transaction, const WantedApps& wanted, Instant now) {
  beginRound(transaction, questionsOf(wanted), now);
  transaction.run("UPDATE rounds SET preparing = 1, lookups = 0, storefronts = $1 WHERE ended = 0",
                  {fmt::format("{}", fmt::join(wanted.storefronts, ","))});
  transaction.run("DELETE FROM wanted");
  if (wanted.wantsRecorded)
    transaction.run("INSERT INTO wanted (track_id) SELECT DISTINCT track_id FROM apps");
  addWanted(transaction, wanted.ids);
}

void addWanted(SqlTransaction& transaction, std::vector<std::int64_t> ids) {
  // Two that add the same ones at a time in another order would wait for each other.
  std::ranges::sort(ids);
  for (const auto& piece : piecesOf(ids, kIdsInStatement)) {
    transaction.run(
        fmt::format("INSERT INTO wanted (track_id) VALUES ({}) "
                    "ON CONFLICT (track_id) DO NOTHING",
                    fmt::join(piece, "), (")));
  }
}

bool endPreparation(SqlTransaction& transaction) {
  const std::optional<Round> round = newestRound(transaction);
  if (!round || !round->preparation) return false;
  if (round->preparation->done < round->preparation->questions) return false;
  keepFailed(transaction);
  const std::int64_t lookups = makeLookups(transaction, round->id);
  transaction.run("UPDATE rounds SET preparing = 0, lookups = $2 WHERE id = $1",
                  {round->id, lookups});
  if (lookups == 0) takeBack(transaction, round->id);
  transaction.run("DELETE FROM wanted");
  return true;
}

}  // namespace quillet
