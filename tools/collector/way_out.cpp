// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/way_out.h"

#include <fmt/format.h>

#include <QCryptographicHash>
#include <QNetworkProxy>
#include <QUrl>

#include "collector/namespace_number.h"

namespace quillet {

namespace {

/// "proxy.example:3128"; empty for the direct way.
std::string proxyTo(const std::string& address) {
  const QNetworkProxyQuery query(QUrl(QString::fromStdString(address)));
  for (const QNetworkProxy& proxy : QNetworkProxyFactory::systemProxyForQuery(query)) {
    if (proxy.type() == QNetworkProxy::NoProxy) return {};
    return fmt::format("{}:{}", proxy.hostName().toStdString(), proxy.port());
  }
  return {};
}

std::string digestOf(const std::string& text) {
  constexpr int kLength = 12;
  return QCryptographicHash::hash(text, QCryptographicHash::Sha256)
      .toHex()
      .left(kLength)
      .toStdString();
}

}  // namespace

std::string nameOfWayOut(const Endpoints& endpoints) {
  const std::string way = proxyTo(endpoints.itunes) + ' ' + endpoints.itunes;
  return fmt::format("quillet-collector-{}-{}", namespaceNumber("net"), digestOf(way));
}

std::vector<std::filesystem::path> sharedFolders(const Environment& environment) {
  const auto chosen = environment.get("QUILLET_COLLECTOR_BUDGET_DIR");
  if (chosen && !chosen->empty()) return {*chosen};
  return {"/run/lock", "/tmp"};
}

}  // namespace quillet
