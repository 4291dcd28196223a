// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/platform/search_provider.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMetaType>

#include "system/application_name.h"

namespace quillet {
namespace {

// As the installed files name them, which tell desktops of the provider.
QString serviceName() { return QStringLiteral("org.example.Quillet.SearchProvider"); }
QString objectPath() { return QStringLiteral("/org/example/Quillet/SearchProvider"); }

QString textOf(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QVariantMap metaOf(const QString& identifier, const SearchHit& hit) {
  return {{QStringLiteral("id"), identifier},
          {QStringLiteral("name"), hit.name},
          {QStringLiteral("description"), hit.description},
          {QStringLiteral("gicon"), textOf(kApplicationId)}};
}

}  // namespace

SearchProvider::SearchProvider(SearchAnswers& answers) : answers_(answers) {
  qDBusRegisterMetaType<QList<QVariantMap>>();
}

/// The object comes first: who waits for the name asks at once.
bool SearchProvider::begin(const QDBusConnection& bus) {
  bus_.emplace(bus);
  return bus_->registerObject(objectPath(), this, QDBusConnection::ExportAllSlots) &&
         bus_->registerService(serviceName());
}

/// What came before the bus took the name away is in the event loop's queue, and what is answered
/// then was sent before the bus answers us.
void SearchProvider::end() {
  bus_->unregisterService(serviceName());
  QCoreApplication::processEvents();
  bus_->unregisterObject(objectPath());
  (void)bus_->interface()->isServiceRegistered(serviceName());
}

QStringList SearchProvider::GetInitialResultSet(const QStringList& terms) {
  Q_EMIT asked();
  return answers_.find(terms);
}

QStringList SearchProvider::GetSubsearchResultSet(const QStringList& /*previous*/,
                                                  const QStringList& terms) {
  return GetInitialResultSet(terms);
}

QList<QVariantMap> SearchProvider::GetResultMetas(const QStringList& identifiers) {
  Q_EMIT asked();
  QList<QVariantMap> metas;
  for (const QString& each : identifiers) {
    if (const auto hit = answers_.describe(each)) metas << metaOf(each, *hit);
  }
  return metas;
}

void SearchProvider::ActivateResult(const QString& identifier, const QStringList& /*terms*/,
                                    uint /*timestamp*/) {
  Q_EMIT asked();
  answers_.open(identifier);
}

void SearchProvider::LaunchSearch(const QStringList& terms, uint /*timestamp*/) {
  Q_EMIT asked();
  answers_.search(terms.join(QLatin1Char(' ')));
}

}  // namespace quillet
