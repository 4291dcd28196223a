// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <functional>

#include "desktop/services/live_settings.h"

namespace quillet {

/// How controls change the settings. What cannot be kept is told, and the controls, which show what
/// is kept and nothing else, go back.
class SettingsEdit : public QObject {
  Q_OBJECT

 public:
  /// The settings outlive this.
  explicit SettingsEdit(LiveSettings& settings);

  [[nodiscard]] LiveSettings& settings() const { return settings_; }

  void write(const WritableSettings::Values& values);
  /// Any other change that may fail, with what it throws as a sentence.
  void attempt(const std::function<void()>& change);

 Q_SIGNALS:
  /// Something is kept otherwise than before, or could not be: controls show it anew.
  void changed();
  /// The last change could not be kept.
  void failed(const QString& sentence);
  /// It was.
  void succeeded();

 private:
  LiveSettings& settings_;
};

}  // namespace quillet
