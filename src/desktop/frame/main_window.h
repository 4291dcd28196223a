// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMainWindow>
#include <filesystem>
#include <memory>

#include "base/errors.h"
#include "desktop/dialogs/system_choices.h"
#include "desktop/frame/section_table.h"
#include "desktop/models/app_texts.h"
#include "desktop/services/arguments.h"

namespace quillet {

class EditHistory;
class ServiceHost;
struct SidebarTarget;

/// What a window reaches the outside through. All of it outlives the window.
struct WindowWorld {
  ViewWorld views;
  SectionMakers sections;
  SystemChoices system{};
};

/// The window: menu bar, sidebar, toolbar, and on its sheet a section beside the page of the chosen
/// app. It places them and takes word from one to the other; what they do is their own. It is there
/// before the library is open, with what was known last.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit MainWindow(const WindowWorld& world);
  ~MainWindow() override;

  /// Shows where the user was last, once; before the window itself is shown.
  void begin();
  /// Gives it the memory that it is painted into. The system hands that out as it is first written
  /// to, which takes as long as the painting: so it is done before, in an event of its own.
  void layCanvas();
  /// Called once, with the services of the library that is open now, which outlive the window.
  void useHost(ServiceHost& host);
  /// The library, whose file is named, cannot be opened.
  void showProblem(const DatabaseError& reason, const std::filesystem::path& library);

  /// What a start asks for: a section, an app.
  void obey(const DesktopArguments& asked);
  /// Asks somebody who starts for the first time for what they are asked once.
  void greet();
  /// The newest alert of an app, or the app itself.
  void showAlertOf(std::int64_t trackId);
  void showSettings();
  void say(const QString& text);

 Q_SIGNALS:
  /// The window was painted for the first time.
  void painted();
  /// The user wants the library to be opened once more.
  void triedAgain();
  /// The user closed the window, or the application closes what it has.
  void closed();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Parts;
  void connectParts();
  void connectEditors();
  void tellEdits(EditHistory& edits);
  void restoreGeometry();
  void keepGeometry();
  void follow();
  void leave();
  void tellUpdate();
  void goTo(const SidebarTarget& target);
  void take(const SidebarTarget& target, const std::vector<NamedKey>& apps, Qt::DropAction how);
  void paintContent();
  void paintLater();
  [[nodiscard]] bool keepsKey(QKeyEvent& key) const;

  std::unique_ptr<Parts> parts_;
  bool wasPainted_ = false;
};

}  // namespace quillet
