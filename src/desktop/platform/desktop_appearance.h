// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include "system/settings.h"

namespace quillet {

/// How windows are to look. The default is what a desktop gets that says nothing.
struct Appearance {
  bool isDark = false;
  bool hasMoreContrast = false;
  bool hasLessMotion = false;

  bool operator==(const Appearance&) const = default;
};

/// How the desktop wants them to look, now and from each change on.
class DesktopAppearance : public QObject {
  Q_OBJECT

 public:
  [[nodiscard]] virtual Appearance wanted() const = 0;

 Q_SIGNALS:
  void changed();
};

/// The same once the user's own settings have had their say, of colours and of motion.
[[nodiscard]] Appearance chosenAppearance(Appearance desktop, const Settings& settings);

}  // namespace quillet
