// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QWidget>

class QMainWindow;

namespace quillet {

class AppLinks;
class AppPage;
class ChosenApp;
class CollectionEditor;
class CompareEditor;
class ContentPane;
class EditHistory;
class FramePane;
class Guide;
class HelpWindows;
class HostLink;
class LibraryFiles;
class OwnedEditor;
class PaneRing;
class QuickOpen;
class ReportWindows;
class SavedSearchEditor;
class ScanDesk;
class SearchGuide;
class SettingsWindows;
class ShownCommand;
class Sidebar;
class Snackbar;
class TextSize;
class Toolbar;
class UnreadFinder;
class WatchEditor;

/// The parts of one window that actions act on. All outlive the actions.
struct ActionContext {
  QMainWindow* window = nullptr;
  Guide* guide = nullptr;
  ContentPane* content = nullptr;
  FramePane* frame = nullptr;
  Toolbar* toolbar = nullptr;
  PaneRing* panes = nullptr;
  TextSize* text = nullptr;
  HostLink* host = nullptr;
  AppLinks* links = nullptr;
  QuickOpen* quickOpen = nullptr;
  UnreadFinder* unread = nullptr;
  HelpWindows* help = nullptr;
  Snackbar* snackbar = nullptr;
  AppPage* page = nullptr;
  SearchGuide* search = nullptr;
  SavedSearchEditor* saved = nullptr;
  ChosenApp* app = nullptr;
  SettingsWindows* settings = nullptr;
  EditHistory* edits = nullptr;
  WatchEditor* watch = nullptr;
  Sidebar* sidebar = nullptr;
  CollectionEditor* collections = nullptr;
  OwnedEditor* owned = nullptr;
  CompareEditor* compare = nullptr;
  ReportWindows* reports = nullptr;
  LibraryFiles* files = nullptr;
  const ShownCommand* command = nullptr;
  ScanDesk* scans = nullptr;
  QPointer<QWidget> focused;  ///< what has the keyboard, or had it before the menu bar
};

}  // namespace quillet
