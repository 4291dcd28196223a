// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <set>
#include <string>

#include "desktop/services/price_imports.h"

namespace quillet {

class ServiceHost;

/// What windows know of published prices, and how they ask for them. It is there before the
/// services are.
class PriceData : public QObject {
  Q_OBJECT

 public:
  /// Called once; the host outlives all windows.
  void use(ServiceHost& host);

  [[nodiscard]] PriceDataState stateOf(const std::string& country) const;
  /// The user looks at this storefront: it is kept up from now on, where the settings let it.
  void follow(const std::string& country);
  /// The user wants what is new, of all that are followed; nothing before the services are there.
  void check();

 Q_SIGNALS:
  void changed();

 private:
  ServiceHost* host_ = nullptr;
  std::set<std::string> followed_;  ///< before there was one
};

}  // namespace quillet
