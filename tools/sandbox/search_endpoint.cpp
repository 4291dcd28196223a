// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/search_endpoint.h"

#include "sandbox/service_answers.h"

namespace quillet::sandbox {

Answer answerSearch(const SampleStore& store, const Request& request) {
  const auto storefront = storefrontOf(request);
  if (!storefront) return invalidValue("country");
  const std::string entity = request.item("entity");
  const auto shelf = entity.empty() ? Shelf::iphone : shelfOf(entity);
  if (!shelf) return invalidValue("resultEntity");
  const std::string term = request.item("term");
  const auto found = store.search({term, *shelf, *storefront, limitOf(request)});
  ResultList results(found.size());
  for (const AppNumber number : found) {
    const SampleApp app = store.app(number);
    const bool isMac = *shelf == Shelf::mac && app.machines.mac;
    writeRecord(results.json(), app,
                {isMac ? RecordKind::mac : RecordKind::ios, *storefront, request.freshness});
  }
  return results.take();
}

}  // namespace quillet::sandbox
