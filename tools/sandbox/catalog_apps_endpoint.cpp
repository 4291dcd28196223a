// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/catalog_apps_endpoint.h"

#include "sandbox/catalog_answers.h"
#include "sandbox/catalog_attributes.h"
#include "sandbox/catalog_resources.h"

namespace quillet::sandbox {

namespace {

constexpr const char* kPurchases = "top-in-app-purchasables";

void writeApp(JsonWriter& json, const SampleApp& app, const RecordView& view, bool hasPurchases) {
  json.beginObject();
  json.key("attributes");
  writeAppAttributes(json, app, view, {});
  json.member("id", std::to_string(app.id));
  json.member("type", "apps");
  if (hasPurchases && !app.purchases.empty()) {
    json.key("views");
    json.beginObject();
    writePurchaseList(json, kPurchases, app, view.storefront);
    json.endObject();
  }
  json.endObject();
}

}  // namespace

Answer answerCatalogApps(const SampleStore& store, const Request& request) {
  if (auto refusal = catalogRefusal(request)) return std::move(*refusal);
  const auto ids = catalogIds(request);
  if (!ids) return wrongIds();
  const RecordView view = catalogView(request);
  const bool hasPurchases = request.item("views") == kPurchases;
  ResourceList list;
  for (const SampleApp& app : catalogApps(store, *ids, view.storefront))
    writeApp(list.json(), app, view, hasPurchases);
  return list.take();
}

}  // namespace quillet::sandbox
