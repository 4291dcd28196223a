// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/price_data.h"

#include "desktop/services/service_host.h"

namespace quillet {

void PriceData::use(ServiceHost& host) {
  host_ = &host;
  connect(&host.imports(), &PriceImports::changed, this, &PriceData::changed);
  for (const std::string& country : followed_) host.followPriceData(country);
  Q_EMIT changed();
}

PriceDataState PriceData::stateOf(const std::string& country) const {
  return host_ == nullptr ? PriceDataState() : host_->imports().stateOf(country);
}

void PriceData::follow(const std::string& country) {
  if (host_ == nullptr) {
    followed_.insert(country);
  } else {
    host_->followPriceData(country);
  }
}

void PriceData::check() {
  if (host_ != nullptr) host_->checkPriceData();
}

}  // namespace quillet
