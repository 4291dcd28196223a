// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/purchase_kind.h"

#include <algorithm>
#include <span>

#include "base/text.h"

namespace quillet {

namespace {

using Words = std::span<const std::string_view>;

constexpr std::string_view kTipWords[] = {
    "tip",  "donate", "donation",  "buy me a", "support the dev", "coffee",
    "beer", "lunch",  "thank you", "gratuity", "contribute"};

constexpr std::string_view kUnlockWords[] = {
    "lifetime",          "license",     "licence",        "full version",  "full app",
    "remove ad",         "no ads",      "ad-free",        "ad free",       "perpetual",
    "forever",           "one-time",    "one time",       "permanent",     "unlock all",
    "unlock everything", "product key", "activation key", "serial number", "serial key"};

constexpr std::string_view kConsumableWords[] = {
    "pack",   "coin",   "gem",     "crystal",  "diamond", "gold",     "chest",  "bundle", "token",
    "credit", "ticket", "boost",   "energy",   "life",    "lives",    "spin",   "refill", "pass",
    "daily",  "weekly", "monthly", "starter",  "booster", "currency", "reward", "shard",  "battle",
    "season", "top up", "top-up",  "recharge", "voucher", "gift"};

/// Weaker than the others: "Pro Pack" is a pack.
constexpr std::string_view kUpgradeWords[] = {"unlock",       "pro",      "premium", "upgrade",
                                              "all features", "complete", "plus"};

/// The words that stand for something else inside a longer one: a compass is no pass.
constexpr std::string_view kWholeWords[] = {"life", "lives", "pass", "complete", "plus"};

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Letters of other alphabets and accented ones are the bytes beyond ASCII.
bool isWordPart(char c) {
  return isDigit(c) || (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 0x80;
}

bool standsAlone(std::string_view name, std::size_t position, std::size_t length) {
  const std::size_t end = position + length;
  return (position == 0 || !isWordPart(name[position - 1])) &&
         (end == name.size() || !isWordPart(name[end]));
}

bool mentionsAsWord(std::string_view name, std::string_view word) {
  for (auto at = name.find(word); at != std::string_view::npos; at = name.find(word, at + 1)) {
    if (standsAlone(name, at, word.size())) return true;
  }
  return false;
}

bool mentions(std::string_view name, std::string_view word) {
  const bool wholeOnly = std::ranges::find(kWholeWords, word) != std::end(kWholeWords);
  return wholeOnly ? mentionsAsWord(name, word) : name.find(word) != std::string_view::npos;
}

bool mentionsAny(std::string_view name, Words words) {
  return std::ranges::any_of(words, [&](std::string_view word) { return mentions(name, word); });
}

bool startsWithSpace(std::string_view text) { return trimmed(text).data() != text.data(); }

/// Digits with a blank behind them, as in "500 coins". Expects a name without blanks at its end.
bool namesQuantity(std::string_view name) {
  for (std::size_t i = 0; i + 1 < name.size(); ++i) {
    if (isDigit(name[i]) && startsWithSpace(name.substr(i + 1))) return true;
  }
  return false;
}

}  // namespace

PurchaseKind purchaseKind(const InAppPurchase& purchase) {
  if (purchase.isSubscription) return PurchaseKind::subscription;
  const std::string lower = lowerAscii(purchase.name);
  const std::string_view name = trimmed(lower);
  if (mentionsAny(name, kTipWords)) return PurchaseKind::tip;
  if (mentionsAny(name, kUnlockWords)) return PurchaseKind::unlock;
  if (mentionsAny(name, kConsumableWords) || namesQuantity(name)) return PurchaseKind::consumable;
  return mentionsAny(name, kUpgradeWords) ? PurchaseKind::unlock : PurchaseKind::unclear;
}

}  // namespace quillet
