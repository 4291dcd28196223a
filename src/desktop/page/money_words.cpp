// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/money_words.h"

#include <QCoreApplication>

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Page", text); }

}  // namespace

QString moneyText(MonetizationModel model) {
  switch (model) {
    case MonetizationModel::paidOnce: return tr("Pay once");
    case MonetizationModel::oneTimeOnly: return tr("One-time unlock");
    case MonetizationModel::extrasOnly: return tr("Sells extras");
    case MonetizationModel::subscriptionPresent: return tr("Subscription");
    case MonetizationModel::hasPurchases: return tr("In-app purchases");
    case MonetizationModel::subscriptionOnly: return tr("Subscription only");
    case MonetizationModel::subscriptionOrOneTime: return tr("Subscription or once");
    case MonetizationModel::free:
    case MonetizationModel::unknown: break;
  }
  return {};
}

QString moneySentence(MonetizationModel model) {
  const std::string_view text = explanation(model).value_or("");
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace quillet
