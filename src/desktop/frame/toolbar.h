// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/frame/find_field.h"
#include "desktop/frame/refresh_button.h"
#include "desktop/frame/sort_button.h"
#include "desktop/lists/section.h"
#include "desktop/lists/text_label.h"

class QPushButton;
class QToolButton;

namespace quillet {

class ActionSet;
class LinkButton;
class Section;

/// What the toolbar says of the place; what it has no room or use for hides itself.
struct ToolbarState {
  QString title;
  QString position;  ///< "1 of 40", where the page stands alone
  QString findText;  ///< what the field says while it is empty
  QString text;      ///< what is in it
  bool isPageAlone = false;
  bool canRefresh = false;
  bool canStandBeside = false;
  bool isBusy = false;
  bool canMarkAll = false;   ///< as read
  bool canCollect = false;   ///< in a new collection
  QWidget* tools = nullptr;  ///< of the section; null for none
  ToolsPlace toolsPlace = ToolsPlace::instead;
};

/// The bar above the content: back, forward, where the user is, and what can be done with the list.
/// Its buttons are actions.
class Toolbar : public QWidget {
  Q_OBJECT

 public:
  /// Both outlive the toolbar.
  Toolbar(ActionSet& actions, SortMenu& sorts);

  /// Takes the tools of a section, to be shown while the state says so.
  void addTools(Section& section);
  void setState(const ToolbarState& state);
  [[nodiscard]] FindField& find() { return *find_; }
  /// The field, or what is first where that is hidden.
  void takeFocus();
  /// The field where the user types, with its text selected.
  void goToField();
  /// What the tab key reaches in it, from left to right.
  [[nodiscard]] std::vector<QWidget*> parts() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void showTools(QWidget* shown, ToolsPlace place);
  void followSorts();
  void fit();
  QToolButton* button(ActionSet& actions, const char* id, const char* icon);

  QWidget* tools_ = nullptr;  ///< those that are shown in the place of title and field
  std::vector<QWidget*> allTools_;
  std::vector<SortButton*> sortsInTools_;
  SortMenu& sorts_;
  TextLabel* title_;
  TextLabel* listTitle_;  ///< in its place where the page stands alone
  TextLabel* position_;
  LinkButton* markAll_;
  QPushButton* collect_;
  QString collectText_;  ///< where there is room for it
  SortButton* sort_;
  FindField* find_;
  QToolButton* previous_ = nullptr;
  QToolButton* next_ = nullptr;
  RefreshButton* refresh_;
  QToolButton* beside_ = nullptr;
};

}  // namespace quillet
