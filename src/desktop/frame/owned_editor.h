// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <string>
#include <vector>

#include "desktop/models/app_texts.h"
#include "desktop/models/store_question.h"
#include "desktop/models/view_world.h"

namespace quillet {

struct NamedApp;
class OwnedFinder;

/// What the user does with My Apps by hand.
class OwnedEditor : public QObject {
  Q_OBJECT

 public:
  /// All outlive the editor; questions stand before `window`.
  OwnedEditor(const ViewWorld& world, QWidget& window);

  void add(const std::vector<NamedKey>& apps);
  /// Asks for an app of another list, or of the store.
  void find();
  /// Asks what the user knows of one. Of one that is gone nothing is done.
  void editDetails(const AppKey& app);

  /// Looks up once more what could not be.
  void tryAgain() { question_.tryAgain(); }

 Q_SIGNALS:
  /// What was typed names no app: the user wants to search the store for it.
  void searched(const QString& text);
  void said(const QString& text);
  /// The store was not asked, or did not answer, which can be tried again.
  void failed(const QString& why);

 private:
  void lookUp(const NamedApp& named);
  void take(const std::string& country, std::optional<ITunesApp> app);
  void tellQuestion();
  static Task<> ask(QPointer<OwnedEditor> editor, AppKey app);
  void show(const OwnedApp& app, const std::string& currency);

  ViewWorld world_;
  QWidget& window_;
  OwnedFinder* finder_;  ///< the window's
  StoreQuestion question_;
};

}  // namespace quillet
