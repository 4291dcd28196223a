// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/catalog_bundles_endpoint.h"

#include "base/numbers.h"
#include "sandbox/amounts.h"
#include "sandbox/bundles.h"
#include "sandbox/catalog_answers.h"
#include "sandbox/catalog_attributes.h"
#include "sandbox/web_addresses.h"

namespace quillet::sandbox {

namespace {

void writeAttributes(JsonWriter& json, const SampleBundle& bundle, Storefront storefront) {
  json.key("attributes");
  json.beginObject();
  json.key("artwork");
  writeIconTemplate(json, bundle.id);
  json.member("name", bundle.name);
  json.key("offers");
  json.beginArray();
  json.beginObject();
  writePriceMembers(json, storefront, priceIn(storefront, bundle.usCents));
  json.member("type", "buy");
  json.endObject();
  json.endArray();
  json.member("url", webUrl("app-bundle", bundle.name, bundle.id, storefront));
  json.endObject();
}

void writeApps(JsonWriter& json, const SampleBundle& bundle, const RecordView& view) {
  json.key("relationships");
  json.beginObject();
  json.key("apps");
  json.beginObject();
  json.key("data");
  json.beginArray();
  for (const SampleApp& app : bundle.apps) {
    json.beginObject();
    json.key("attributes");
    writeAppAttributes(json, app, view, {});
    json.member("id", std::to_string(app.id));
    json.member("type", "apps");
    json.endObject();
  }
  json.endArray();
  json.endObject();
  json.endObject();
}

void writeBundle(JsonWriter& json, const SampleBundle& bundle, const RecordView& view,
                 bool hasApps) {
  json.beginObject();
  writeAttributes(json, bundle, view.storefront);
  json.member("id", std::to_string(bundle.id));
  if (hasApps) writeApps(json, bundle, view);
  json.member("type", "app-bundles");
  json.endObject();
}

}  // namespace

Answer answerCatalogBundles(const SampleStore& store, const Request& request) {
  if (auto refusal = catalogRefusal(request)) return std::move(*refusal);
  const auto ids = catalogIds(request);
  if (!ids) return wrongIds();
  const RecordView view = catalogView(request);
  ResourceList list;
  for (const std::string& id : *ids) {
    const auto bundle = bundleWithId(store, parseWhole(id).value_or(0), view.storefront);
    if (bundle) writeBundle(list.json(), *bundle, view, request.item("include") == "apps");
  }
  return list.take();
}

}  // namespace quillet::sandbox
