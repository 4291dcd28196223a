// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/catalog_resources.h"

#include <algorithm>
#include <span>

#include "base/text.h"
#include "sandbox/amounts.h"
#include "sandbox/json_parts.h"
#include "sandbox/random.h"

namespace quillet::sandbox {

namespace {

constexpr std::size_t kMostPurchases = 10;

void writeOffer(JsonWriter& json, const SamplePurchase& purchase, Storefront storefront,
                Hundredths amount) {
  writeObject(json, [&] {
    writePriceMembers(json, storefront, amount);
    if (purchase.isSubscription()) json.member("recurringSubscriptionPeriod", purchase.period);
    json.member("type", "buy");
  });
}

/// An offer that has no price of its own.
void writeTrialOffer(JsonWriter& json) {
  writeObject(json, [&] {
    json.member("numOfPeriods", 1);
    json.member("type", "trial");
  });
}

void writeOffers(JsonWriter& json, const SamplePurchase& purchase, Storefront storefront) {
  const Hundredths amount = priceIn(storefront, purchase.usCents);
  const std::size_t dice =
      Random(mixed(static_cast<std::uint64_t>(purchase.usCents), purchase.name.size())).below(6);
  writeList(json, "offers", [&] {
    if (dice == 0) writeTrialOffer(json);
    writeOffer(json, purchase, storefront, amount);
    if (dice == 1) writeOffer(json, purchase, storefront, amount / 2);
  });
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
  writeObject(json, "developerResponse", [&] {
    json.member("body", review.reply->body);
    json.member("id", review.id + 1);
    json.member("modified", review.reply->written);
  });
}

void writePurchase(JsonWriter& json, const SamplePurchase& purchase, const SampleApp& app,
                   Storefront storefront) {
  writeObject(json, [&] {
    writeObject(json, "attributes", [&] {
      writeObject(json, "description", [&] { json.member("standard", purchase.details); });
      json.member("isFamilyShareable", purchase.familyShareable);
      json.member("isSubscription", purchase.isSubscription());
      json.member("name", purchase.name);
      json.member("offerName", offerName(purchase, app));
      writeOffers(json, purchase, storefront);
    });
    json.member("id", purchase.productId);
    json.member("type", "in-apps");
  });
}

}  // namespace

void writePurchaseList(JsonWriter& json, std::string_view name, const SampleApp& app,
                       Storefront storefront) {
  const auto shown = std::span(app.purchases).first(std::min(app.purchases.size(), kMostPurchases));
  writeDataOf(json, name, shown, [&](const SamplePurchase& purchase) {
    writePurchase(json, purchase, app, storefront);
  });
}

void writeReview(JsonWriter& json, const SampleReview& review) {
  writeObject(json, [&] {
    writeObject(json, "attributes", [&] {
      json.member("date", review.date);
      if (review.reply) writeReply(json, review);
      json.member("isEdited", review.isEdited);
      json.member("rating", review.stars);
      json.member("review", review.body);
      json.member("title", review.title);
      json.member("userName", review.userName);
    });
    json.member("id", std::to_string(review.id));
    json.member("type", "user-reviews");
  });
}

void writeReference(JsonWriter& json, const std::string& id, const char* type) {
  writeObject(json, [&] {
    json.member("id", id);
    json.member("type", type);
  });
}

}  // namespace quillet::sandbox
