// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>

#include "desktop/frame/action_context.h"
#include "desktop/frame/action_set.h"
#include "desktop/frame/alert_reader.h"
#include "desktop/frame/app_links.h"
#include "desktop/frame/app_opener.h"
#include "desktop/frame/chosen_app.h"
#include "desktop/frame/collection_editor.h"
#include "desktop/frame/compare_editor.h"
#include "desktop/frame/content_pane.h"
#include "desktop/frame/counts_feed.h"
#include "desktop/frame/frame_pane.h"
#include "desktop/frame/guide.h"
#include "desktop/frame/help_windows.h"
#include "desktop/frame/host_link.h"
#include "desktop/frame/library_files.h"
#include "desktop/frame/library_problem.h"
#include "desktop/frame/main_window.h"
#include "desktop/frame/owned_editor.h"
#include "desktop/frame/pane_ring.h"
#include "desktop/frame/quick_open.h"
#include "desktop/frame/report_windows.h"
#include "desktop/frame/saved_search_editor.h"
#include "desktop/frame/scan_desk.h"
#include "desktop/frame/search_guide.h"
#include "desktop/frame/section_bars.h"
#include "desktop/frame/section_stack.h"
#include "desktop/frame/selector_menu.h"
#include "desktop/frame/settings_windows.h"
#include "desktop/frame/sheet.h"
#include "desktop/frame/shown_command.h"
#include "desktop/frame/sidebar.h"
#include "desktop/frame/snackbar.h"
#include "desktop/frame/sort_menu.h"
#include "desktop/frame/text_size.h"
#include "desktop/frame/toolbar.h"
#include "desktop/frame/unread_finder.h"
#include "desktop/frame/watch_editor.h"

namespace quillet {

/// Of what a window consists. What stands as a pointer is a child of the window's widgets.
struct MainWindow::Parts {
  Parts(MainWindow& window, const WindowWorld& world);

  void place(MainWindow& window);
  void showContent(bool shows);
  /// The menu of what is chosen, with what only this section can do.
  void popUpMenu(const QPoint& at);
  /// Whether there is anything to choose in menus that are filled when they open.
  void updateMenus();
  /// Puts the tools and the bar of a section that was made where they belong.
  void take(Section& section);
  /// Shows what the section that is seen has around its list.
  void showAround();
  /// Painted one by one, after what is around them.
  [[nodiscard]] std::array<QWidget*, 2> paintedLate() const { return {sections, page}; }
  [[nodiscard]] ToolbarState toolbarState() const;
  [[nodiscard]] QString windowTitle() const;
  /// Where the user is, as the sidebar has it.
  [[nodiscard]] SidebarTarget target() const;

  LiveSettings& kept;
  SettingsWindows settings;  ///< looks whether anything is remembered before others remember
  WindowMemory memory;
  HostLink host;
  SidebarModel places;
  CountsFeed counts;
  TextSize text;
  ActionContext context;
  ActionSet actions;
  SortMenu* sorts;
  std::vector<SelectorMenu*> selectors;
  Toolbar* toolbar;
  SectionBars* bars;
  SectionStack* sections;
  AppPage* page;
  ContentPane* content;
  LibraryProblem* problem;
  Sheet* sheet;
  Sidebar* sidebar;
  FramePane* frame;
  Snackbar* snackbar;
  QuickOpen* quickOpen;
  QMenu* appMenu;
  QMenu* adding;  ///< what the chosen apps can be put into
  QMenu* moving;  ///< likewise, out of the collection that is shown
  Guide guide;
  SearchGuide search;
  SavedSearchEditor saved;
  CollectionEditor collections;
  OwnedEditor owned;
  CompareEditor compare;
  ScanDesk scans;
  ChosenApp app;
  WatchEditor watch;
  AppLinks links;
  UnreadFinder unread;
  AlertReader reader;
  AppOpener opener;
  LibraryFiles files;
  ShownCommand command;
  HelpWindows help;
  ReportWindows reports;
  PaneRing panes;
};

}  // namespace quillet
