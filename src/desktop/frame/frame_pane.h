// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSplitter>

#include "desktop/frame/sidebar.h"
#include "desktop/frame/window_memory.h"

class QMenuBar;

namespace quillet {

/// What stands around the content: the sidebar at the left, which becomes a rail in a narrow
/// window, and the menu bar; the user hides and sizes them.
class FramePane : public QSplitter {
  Q_OBJECT

 public:
  /// Owns sidebar and sheet from now on; the rest outlives the pane.
  FramePane(Sidebar* sidebar, QWidget* sheet, QMenuBar& menuBar, WindowMemory& memory);

  [[nodiscard]] bool showsSidebar() const { return showsSidebar_; }
  void toggleSidebar();
  [[nodiscard]] bool showsMenuBar() const { return showsMenuBar_; }
  void toggleMenuBar();

 Q_SIGNALS:
  /// The sidebar became a rail or was hidden, or the other way round.
  void arranged();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  QSplitterHandle* createHandle() override;

 private:
  void arrange();

  Sidebar* sidebar_;
  QMenuBar& menuBar_;
  WindowMemory& memory_;
  bool showsSidebar_;
  bool showsMenuBar_;
  int width_;  ///< of the sidebar with names, by the user; 0 before
};

}  // namespace quillet
