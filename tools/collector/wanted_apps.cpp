// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/wanted_apps.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "base/errors.h"
#include "base/numbers.h"
#include "base/text.h"
#include "collector/price_record.h"
#include "store/records/itunes_error.h"

namespace quillet {

namespace {

constexpr int kLongestSearch = 200;

using Ids = std::set<std::int64_t>;

/// A question to the store: a chart, or the search for a term if that is not empty.
struct Question {
  std::string country;
  Platform platform = Platform::mac;
  ChartType chart = ChartType::topFree;
  std::string term;
};

std::vector<Question> questionsOf(const WantedApps& wanted) {
  std::vector<Question> questions;
  for (const std::string& country : wanted.storefronts) {
    for (const auto& [platform, word] : kPlatformWords) {
      for (const auto& [chart, text] : kChartTypeWords) {
        if (wanted.wantsCharts) questions.push_back({country, platform, chart, {}});
      }
      for (const std::string& term : wanted.searches) {
        questions.push_back({country, platform, ChartType::topFree, term});
      }
    }
  }
  return questions;
}

Task<std::vector<std::int64_t>> answerTo(Question question, CollectorServices services,
                                         StopToken stop) {
  if (question.term.empty()) {
    const ChartQuery chart{question.chart, question.platform, question.country, {}};
    co_return co_await services.charts.ids(chart, {RequestClass::interactive, stop});
  }
  const std::vector<ITunesApp> apps =
      co_await services.itunes.search(question.term, question.country, question.platform,
                                      kLongestSearch, {RequestClass::interactive, stop});
  std::vector<std::int64_t> ids;
  for (const ITunesApp& app : apps) ids.push_back(app.trackId);
  co_return ids;
}

std::string nameOf(const Question& question) {
  const std::string what = question.term.empty()
                               ? "chart " + std::string(textOf(kChartTypeWords, question.chart))
                               : "search '" + question.term + "'";
  return fmt::format("{} ({}, {})", what, textOf(kPlatformWords, question.platform),
                     question.country);
}

/// Whether the store answered, but not with what was asked: a chart that it does not have.
bool isOfThisQuestionAlone(const ITunesError& error) {
  return error.status() >= 400 && error.status() < 500 && !error.isRefusal();
}

Task<std::vector<std::int64_t>> answerOrNothing(Question question, CollectorServices services,
                                                StopToken stop) {
  try {
    co_return co_await answerTo(question, services, stop);
  } catch (const ITunesError& error) {
    if (error.kind() == ITunesError::Kind::emptyFeed) co_return std::vector<std::int64_t>();
    if (!isOfThisQuestionAlone(error)) throw;
    services.say(fmt::format("No {}: {}", nameOf(question), error.what()));
  } catch (const DecodingError& error) {
    services.say(fmt::format("No {}: {}", nameOf(question), error.what()));
  }
  co_return std::vector<std::int64_t>();
}

std::vector<LookupRequest> lookupsOf(const Ids& ids, const std::vector<std::string>& storefronts) {
  const std::vector<std::int64_t> all(ids.begin(), ids.end());
  std::vector<LookupRequest> requests;
  for (const std::string& country : storefronts) {
    for (std::size_t start = 0; start < all.size(); start += kLookupBatch) {
      const std::size_t end = std::min(start + kLookupBatch, all.size());
      const auto place = [&](std::size_t i) {
        return all.begin() + static_cast<std::ptrdiff_t>(i);
      };
      requests.push_back({country, {place(start), place(end)}});
    }
  }
  return requests;
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

Task<std::vector<LookupRequest>> wantedLookups(CollectorServices services, WantedApps wanted,
                                               StopToken stop) {
  Ids ids(wanted.ids.begin(), wanted.ids.end());
  if (wanted.wantsRecorded) {
    const auto recorded = recordedIds(*services.database.begin(SqlAccess::read));
    ids.insert(recorded.begin(), recorded.end());
  }
  for (const Question& question : questionsOf(wanted)) {
    const auto found = co_await answerOrNothing(question, services, stop);
    ids.insert(found.begin(), found.end());
  }
  co_return lookupsOf(ids, wanted.storefronts);
}

}  // namespace quillet
