// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <string>
#include <vector>

#include "desktop/models/app_texts.h"
#include "desktop/models/view_world.h"

namespace quillet {

/// What the user does with My Apps by hand.
class OwnedEditor : public QObject {
  Q_OBJECT

 public:
  /// All outlive the editor; questions stand before `window`.
  OwnedEditor(const ViewWorld& world, QWidget& window);

  void add(const std::vector<NamedKey>& apps);
  /// Asks what the user knows of one. Of one that is gone nothing is done.
  void editDetails(const AppKey& app);

 private:
  static Task<> ask(QPointer<OwnedEditor> editor, AppKey app);
  void show(const OwnedApp& app, const std::string& currency);

  ViewWorld world_;
  QWidget& window_;
};

}  // namespace quillet
