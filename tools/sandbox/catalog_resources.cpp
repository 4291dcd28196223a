// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/catalog_resources.h"

#include <algorithm>

#include "base/text.h"
#include "sandbox/amounts.h"
#include "sandbox/random.h"

namespace quillet::sandbox {

namespace {

constexpr std::size_t kMostPurchases = 10;

void writeOffer(JsonWriter& json, const SamplePurchase& purchase, Storefront storefront,
                Hundredths amount) {
  json.beginObject();
  writePriceMembers(json, storefront, amount);
  if (purchase.isSubscription()) json.member("recurringSubscriptionPeriod", purchase.period);
  json.member("type", "buy");
  json.endObject();
}

/// An offer that has no price of its own.
void writeTrialOffer(JsonWriter& json) {
  json.beginObject();
  json.member("numOfPeriods", 1);
  json.member("type", "trial");
  json.endObject();
}

void writeOffers(JsonWriter& json, const SamplePurchase& purchase, Storefront storefront) {
  const Hundredths amount = priceIn(storefront, purchase.usCents);
  const std::size_t dice =
      Random(mixed(static_cast<std::uint64_t>(purchase.usCents), purchase.name.size())).below(6);
  json.key("offers");
  json.beginArray();
  if (dice == 0) writeTrialOffer(json);
  writeOffer(json, purchase, storefront, amount);
  if (dice == 1) writeOffer(json, purchase, storefront, amount / 2);
  json.endArray();
}

/// "com.amberfield.quillink.pro_monthly"
std::string offerName(const SamplePurchase& purchase, const SampleApp& app) {
  std::string name = app.bundleId + '.';
  for (const char c : lowerAscii(purchase.name)) {
    if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) name += c;
    if (c == ' ') name += '_';
  }
  return name;
}

void writeReply(JsonWriter& json, const SampleReview& review) {
  json.beginObject();
  json.member("body", review.reply->body);
  json.member("id", review.id + 1);
  json.member("modified", review.reply->written);
  json.endObject();
}

}  // namespace

void writePurchase(JsonWriter& json, const SamplePurchase& purchase, const SampleApp& app,
                   Storefront storefront) {
  json.beginObject();
  json.key("attributes");
  json.beginObject();
  json.key("description");
  json.beginObject();
  json.member("standard", purchase.details);
  json.endObject();
  json.member("isFamilyShareable", purchase.familyShareable);
  json.member("isSubscription", purchase.isSubscription());
  json.member("name", purchase.name);
  json.member("offerName", offerName(purchase, app));
  writeOffers(json, purchase, storefront);
  json.endObject();
  json.member("id", purchase.productId);
  json.member("type", "in-apps");
  json.endObject();
}

void writePurchaseList(JsonWriter& json, std::string_view name, const SampleApp& app,
                       Storefront storefront) {
  json.key(name);
  json.beginObject();
  json.key("data");
  json.beginArray();
  for (std::size_t i = 0; i < std::min(app.purchases.size(), kMostPurchases); ++i)
    writePurchase(json, app.purchases[i], app, storefront);
  json.endArray();
  json.endObject();
}

void writeReview(JsonWriter& json, const SampleReview& review) {
  json.beginObject();
  json.key("attributes");
  json.beginObject();
  json.member("date", review.date);
  if (review.reply) {
    json.key("developerResponse");
    writeReply(json, review);
  }
  json.member("isEdited", review.isEdited);
  json.member("rating", review.stars);
  json.member("review", review.body);
  json.member("title", review.title);
  json.member("userName", review.userName);
  json.endObject();
  json.member("id", std::to_string(review.id));
  json.member("type", "user-reviews");
  json.endObject();
}

void writeReference(JsonWriter& json, const std::string& id, const char* type) {
  json.beginObject();
  json.member("id", id);
  json.member("type", type);
  json.endObject();
}

}  // namespace quillet::sandbox
