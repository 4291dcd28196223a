// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/record_status.h"

#include <fmt/format.h>

#include <algorithm>

#include "collector/chart_question.h"
#include "collector/price_record.h"

namespace quillet {

namespace {

std::optional<EndedRound> lastOf(SqlTransaction& transaction, std::string_view condition) {
  std::optional<EndedRound> round;
  transaction.each(fmt::format("SELECT id, began, ended, failed FROM rounds WHERE {} "
                               "ORDER BY id DESC LIMIT 1",
                               condition),
                   {}, [&](const SqlRow& row) {
                     round = EndedRound{row.integer(0), restored(row.integer(1)),
                                        restored(row.integer(2)), row.integer(3)};
                   });
  return round;
}

std::optional<Instant> firstBeganOf(SqlTransaction& transaction) {
  std::optional<Instant> first;
  transaction.each("SELECT began FROM rounds ORDER BY id LIMIT 1", {},
                   [&](const SqlRow& row) { first = restored(row.integer(0)); });
  return first;
}

std::vector<FailedApps> failedIn(SqlTransaction& transaction) {
  std::vector<FailedApps> failed;
  for (const LookupRequest& lookup : failedLookups(transaction)) {
    auto apps = std::ranges::find(failed, lookup.country, &FailedApps::country);
    if (apps == failed.end()) apps = failed.insert(apps, {lookup.country, 0, {}});
    apps->apps += static_cast<std::int64_t>(lookup.ids.size());
    const auto room = std::min(kMostFailedIds - apps->ids.size(), lookup.ids.size());
    apps->ids.insert(apps->ids.end(), lookup.ids.begin(),
                     lookup.ids.begin() + static_cast<std::ptrdiff_t>(room));
  }
  return failed;
}

std::vector<std::string> failedQuestionsIn(SqlTransaction& transaction) {
  std::vector<std::string> names;
  for (const LookupRequest& failed : failedQuestions(transaction))
    names.push_back(nameOfStored(failed.question, failed.country));
  return names;
}

RecordCounts countsIn(SqlTransaction& transaction) {
  RecordCounts counts;
  transaction.each(
      "SELECT COUNT(*), COUNT(CASE WHEN gone <> 0 THEN 1 END), COUNT(CASE WHEN moved = 1 THEN 1 "
      "END) FROM apps",
      {}, [&](const SqlRow& row) {
        counts = {.apps = row.integer(0), .gone = row.integer(1), .moved = row.integer(2)};
      });
  transaction.each("SELECT COUNT(*) FROM prices", {},
                   [&](const SqlRow& row) { counts.prices = row.integer(0); });
  return counts;
}

std::vector<StorefrontStatus> storefrontsIn(SqlTransaction& transaction) {
  std::vector<StorefrontStatus> storefronts;
  transaction.each("SELECT country, stamp, looked FROM storefronts ORDER BY country", {},
                   [&](const SqlRow& row) {
                     storefronts.push_back({row.text(0), restored(row.integer(1)), {}});
                     if (row.integer(2) != 0) storefronts.back().looked = restored(row.integer(2));
                   });
  return storefronts;
}

}  // namespace

RecordStatus statusOf(SqlDatabase& database) {
  RecordStatus status;
  {
    const auto transaction = database.begin(SqlAccess::read);
    status = {newestRound(*transaction),
              lastOf(*transaction, "ended <> 0"),
              lastOf(*transaction, "ended <> 0 AND failed = 0"),
              firstBeganOf(*transaction),
              failedIn(*transaction),
              failedQuestionsIn(*transaction),
              troublesIn(*transaction),
              countsIn(*transaction),
              storefrontsIn(*transaction)};
  }
  status.counts.bytes = database.size();
  return status;
}

std::optional<Instant> lastLook(const RecordStatus& record) {
  std::optional<Instant> last;
  for (const StorefrontStatus& storefront : record.storefronts)
    last = std::max(last, storefront.looked);
  return last;
}

}  // namespace quillet
