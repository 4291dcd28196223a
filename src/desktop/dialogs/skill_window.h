// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <functional>

#include "desktop/models/view_world.h"
#include "desktop/services/agent_skill.h"

class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace quillet {

class PageText;

/// Puts the skill for AI agents into the folders where they look for skills. What would be written
/// is shown before, and where something else is there, what would change.
class SkillWindow : public QDialog {
  Q_OBJECT

 public:
  /// `skill`: with its stamp.
  SkillWindow(const ViewWorld& world, std::filesystem::path home, std::string skill,
              QWidget* parent);

  /// Which agents there are by now.
  void look();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void lay();
  void showChosen();
  void chooseFolder();
  void choose(const std::filesystem::path& folder);
  void attempt(const std::function<void(const SkillTarget&)>& act);
  [[nodiscard]] const SkillTarget* chosen() const;

  ViewWorld world_;
  std::filesystem::path home_;
  std::string skill_;
  std::vector<std::filesystem::path> added_;  ///< folders that the user chose
  std::vector<SkillTarget> targets_;
  QListWidget* list_;
  PageText* nothing_;
  PageText* what_;  ///< that is shown below it
  QPlainTextEdit* text_;
  PageText* failure_;
  QPushButton* install_;
  QPushButton* remove_;
};

}  // namespace quillet
