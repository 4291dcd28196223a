// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/lookup_endpoint.h"

#include "base/numbers.h"
#include "base/text.h"
#include "sandbox/service_answers.h"

namespace quillet::sandbox {

namespace {

constexpr std::size_t kMostIds = 200;

struct LookUp {
  const SampleStore& store;
  Storefront storefront;
  Freshness freshness;
  std::optional<Shelf> shelf;  ///< absent when no entity was asked for
  std::size_t limit;
};

/// An ID with builds for both answers with the one for iOS, unless the Mac's is asked for.
RecordKind kindOf(const SampleApp& app, const LookUp& lookUp) {
  const bool isMac = app.machines.mac && (!app.machines.ios() || lookUp.shelf == Shelf::mac);
  return isMac ? RecordKind::mac : RecordKind::ios;
}

void writeRecords(ResultList& results, const std::vector<SampleApp>& apps, const LookUp& lookUp) {
  for (const SampleApp& app : apps)
    writeRecord(results.json(), app, {kindOf(app, lookUp), lookUp.storefront, lookUp.freshness});
}

/// The pieces of a list parted by commas, as far as the service reads it.
std::vector<std::string_view> listed(std::string_view text) {
  std::vector<std::string_view> pieces = split(text, ',');
  pieces.resize(std::min(pieces.size(), kMostIds));
  return pieces;
}

/// The apps that `find` finds for the pieces of a list, without those not sold here.
template <typename Find>
Answer listAnswer(const LookUp& lookUp, std::string_view list, Find find) {
  std::vector<SampleApp> apps;
  for (const std::string_view piece : listed(list)) {
    const std::optional<AppNumber> number = find(trimmed(piece));
    if (!number) continue;
    SampleApp app = lookUp.store.app(*number);
    if (app.isSoldIn(lookUp.storefront)) apps.push_back(std::move(app));
  }
  ResultList results(apps.size());
  writeRecords(results, apps, lookUp);
  return results.take();
}

Answer makerAnswer(const LookUp& lookUp, const std::vector<AppNumber>& numbers) {
  const SampleApp anyApp = lookUp.store.app(numbers.front());
  std::vector<SampleApp> apps;
  for (const AppNumber number : numbers) {
    SampleApp app = lookUp.store.app(number);
    const bool isWanted = lookUp.shelf && runsOn(app.machines, *lookUp.shelf);
    if (isWanted && app.isSoldIn(lookUp.storefront) && apps.size() < lookUp.limit)
      apps.push_back(std::move(app));
  }
  ResultList results(apps.size() + 1);
  writeMakerRecord(results.json(), anyApp.maker, anyApp, lookUp.storefront);
  writeRecords(results, apps, lookUp);
  return results.take();
}

Answer idsAnswer(const LookUp& lookUp, const std::string& ids) {
  const auto makersApps = lookUp.store.ofMaker(parseWhole(ids).value_or(0));
  if (!makersApps.empty()) return makerAnswer(lookUp, makersApps);
  return listAnswer(lookUp, ids, [&](std::string_view text) -> std::optional<AppNumber> {
    const auto id = parseWhole(text);
    return id ? lookUp.store.withId(*id) : std::nullopt;
  });
}

}  // namespace

Answer answerLookup(const SampleStore& store, const Request& request) {
  const auto storefront = storefrontOf(request);
  if (!storefront) return invalidValue("country");
  const std::string entity = request.item("entity");
  const auto shelf = shelfOf(entity);
  if (!entity.empty() && !shelf) return invalidValue("resultEntity");
  const LookUp lookUp{store, *storefront, request.freshness, shelf, limitOf(request)};
  if (const std::string bundleIds = request.item("bundleId"); !bundleIds.empty()) {
    return listAnswer(lookUp, bundleIds,
                      [&](std::string_view text) { return store.withBundleId(text); });
  }
  return idsAnswer(lookUp, request.item("id"));
}

}  // namespace quillet::sandbox
