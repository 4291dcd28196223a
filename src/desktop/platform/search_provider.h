// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <optional>

namespace quillet {

/// Something that a search found, as a desktop shows it.
struct SearchHit {
  QString name;
  QString description;  ///< a line
};

/// What a desktop's search asks. Hits go by names of the answerer's own, which may come back long
/// after, from anybody.
class SearchAnswers {
 public:
  virtual ~SearchAnswers() = default;

  /// The best ones first.
  [[nodiscard]] virtual QStringList find(const QStringList& words) = 0;
  /// Absent where there is none any more.
  [[nodiscard]] virtual std::optional<SearchHit> describe(const QString& hit) = 0;
  /// The user chose a hit.
  virtual void open(const QString& hit) = 0;
  /// The user wants to search on in the application.
  virtual void search(const QString& text) = 0;
};

/// Answers the searches of GNOME's shell, and of whatever else speaks its interface, on the
/// session's bus.
class SearchProvider : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.gnome.Shell.SearchProvider2")

 public:
  /// The answers outlive it.
  explicit SearchProvider(SearchAnswers& answers);

  /// Takes its place on the bus; false where somebody else has it, or there is no bus.
  [[nodiscard]] bool begin(const QDBusConnection& bus);
  /// Gives it up. Returns when all that was asked by then is answered.
  void end();

 public Q_SLOTS:
  // The interface's own names.
  QStringList GetInitialResultSet(const QStringList& terms);
  QStringList GetSubsearchResultSet(const QStringList& previous, const QStringList& terms);
  QList<QVariantMap> GetResultMetas(const QStringList& identifiers);
  void ActivateResult(const QString& identifier, const QStringList& terms, uint timestamp);
  void LaunchSearch(const QStringList& terms, uint timestamp);

 Q_SIGNALS:
  /// Somebody wanted something.
  void asked();

 private:
  SearchAnswers& answers_;
  std::optional<QDBusConnection> bus_;
};

}  // namespace quillet
