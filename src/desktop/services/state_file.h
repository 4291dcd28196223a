// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QObject>
#include <QString>
#include <QTimer>
#include <filesystem>

namespace quillet {

/// What the windows remember from one run to the next and what nobody sets on purpose: places,
/// sizes, the last counts. It is written by rename half a second after the last change, and at the
/// end. What cannot be read is empty, and what cannot be written is lost quietly: nothing here is
/// worth a message.
class StateFile : public QObject {
  Q_OBJECT

 public:
  explicit StateFile(std::filesystem::path file);
  /// Writes what was not written yet.
  ~StateFile() override;

  /// Whether nothing is remembered.
  [[nodiscard]] bool isEmpty() const { return values_.isEmpty(); }
  [[nodiscard]] QJsonValue value(const QString& key) const { return values_.value(key); }
  void setValue(const QString& key, const QJsonValue& value);

 private:
  void write();

  std::filesystem::path file_;
  QJsonObject values_;
  QTimer timer_;  ///< runs while something is to be written
};

}  // namespace quillet
