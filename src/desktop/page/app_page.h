// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QScrollArea>

#include "desktop/lists/section.h"
#include "desktop/models/page_facts.h"

namespace quillet {

/// A part of the page below its header, which is shown again as more is known. One that has nothing
/// to say hides itself.
class Block : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;
  virtual void show(const PageFacts& known) = 0;
};

/// Everything about one app: the header, and blocks below it. It reads what the library knows of
/// the app once it is shown, and again after each change that touched it.
class AppPage : public QScrollArea {
  Q_OBJECT

 public:
  explicit AppPage(const ViewWorld& world);

  /// Without an app: how many were chosen instead, none or several.
  void show(const std::optional<AppKey>& app, std::size_t chosen = 0);
  [[nodiscard]] const std::optional<AppKey>& app() const { return app_; }

 Q_SIGNALS:
  /// The facts of the app are shown.
  void filled();

 private:
  ViewWorld world_;
  std::optional<AppKey> app_;
};

}  // namespace quillet
