// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/status_json.h"

#include "base/json_writer.h"

namespace quillet {

namespace {

using std::chrono::floor;
using std::chrono::seconds;

void writeFailed(JsonWriter& json, const FailedApps& failed) {
  json.beginObject();
  json.member("apps", failed.apps);
  json.member("country", failed.country);
  json.member("ids", failed.ids);
  json.endObject();
}

void writeSuccess(JsonWriter& json, const std::optional<EndedRound>& round) {
  if (!round) return;
  json.key("lastSuccess");
  json.beginObject();
  json.member("began", round->began);
  json.member("ended", round->ended);
  json.member("id", round->id);
  json.endObject();
}

void writeTrouble(JsonWriter& json, const std::optional<Trouble>& trouble) {
  if (!trouble) return;
  json.key("lastTrouble");
  json.beginObject();
  json.member("at", trouble->at);
  json.member("text", trouble->words);
  json.endObject();
}

void writeProblem(JsonWriter& json, const FoundProblem& problem) {
  json.beginObject();
  json.member("code", textOf(kProblemWords, problem.problem));
  json.member("text", problem.text);
  json.endObject();
}

void writePublished(JsonWriter& json, const StatusReport& report) {
  json.key("published");
  json.beginObject();
  json.member("folder", report.published.folder.string());
  json.list("storefronts", report.published.storefronts,
            [&](JsonWriter& writer, const PublishedStorefront& storefront) {
              writer.beginObject();
              if (storefront.stamp)
                writer.member("ageSeconds", floor<seconds>(report.now - *storefront.stamp).count());
              writer.member("apps", storefront.apps);
              writer.member("country", storefront.country);
              writer.member("generatedAt", storefront.stamp);
              writer.member("lookedAt", storefront.looked);
              writer.endObject();
            });
  json.endObject();
}

void writeCounts(JsonWriter& json, const RecordCounts& counts) {
  json.key("record");
  json.beginObject();
  json.member("apps", counts.apps);
  json.member("bytes", counts.bytes);
  json.member("gone", counts.gone);
  json.member("moved", counts.moved);
  json.member("prices", counts.prices);
  json.member("sold", counts.apps - counts.gone);
  json.endObject();
}

void writeRound(JsonWriter& json, const std::optional<Round>& round) {
  if (!round) return;
  json.key("round");
  json.beginObject();
  json.member("began", round->began);
  json.member("changed", round->sums.changed);
  json.member("done", round->done);
  json.member("ended", round->ended);
  json.member("failed", round->failed);
  json.member("id", round->id);
  json.member("lookups", round->lookups);
  json.member("notSold", round->sums.missing);
  json.member("prices", round->sums.found);
  json.endObject();
}

void writeStorefront(JsonWriter& json, const StorefrontStatus& storefront) {
  json.beginObject();
  json.member("changedAt", storefront.changed);
  json.member("country", storefront.country);
  json.member("lookedAt", storefront.looked);
  json.endObject();
}

}  // namespace

std::string statusJson(const StatusReport& report) {
  const RecordStatus& record = report.record;
  return jsonObject([&](JsonWriter& json) {
    json.list("failed", record.failed, writeFailed);
    json.member("gaveUpAt", record.troubles.gaveUp);
    if (const auto lag = lagOf(report)) json.member("lagSeconds", floor<seconds>(*lag).count());
    writeSuccess(json, record.lastSuccess);
    writeTrouble(json, record.troubles.last);
    json.member("nextDue", report.nextDue);
    json.list("problems", report.problems, writeProblem);
    writePublished(json, report);
    writeCounts(json, record.counts);
    writeRound(json, record.newest);
    json.list("storefronts", record.storefronts, writeStorefront);
    json.member("toldAt", report.now);
    json.member("well", report.problems.empty());
  });
}

}  // namespace quillet
