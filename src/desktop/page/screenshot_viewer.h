// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "desktop/images/original_picture.h"
#include "desktop/models/view_world.h"
#include "desktop/page/page_pictures.h"
#include "net/stop_token.h"
#include "net/task.h"

class QAbstractButton;
class QHBoxLayout;
class QPushButton;

namespace quillet {

class PageText;
class PictureCanvas;
class PictureStrip;
class SegmentedControl;
class ViewerNotice;

/// Whose screenshots are looked at.
struct ViewedApp {
  AppKey app;
  std::string name;
  std::vector<PlatformPictures> pictures;  ///< platforms without any are passed over
};

struct ViewedPicture {
  AppKey app;
  Platform platform = Platform::mac;
  std::size_t index = 0;
};

/// A window of its own that shows an app's screenshots in their full size, one at a time, and hands
/// them on: to the clipboard, to a file, all of a platform to a folder. Closed, it is gone, and the
/// memory of its pictures with it.
class ScreenshotViewer : public QWidget {
  Q_OBJECT

 public:
  /// All that the world names outlives it.
  ScreenshotViewer(const ViewWorld& world, QWidget* parent);
  ~ScreenshotViewer() override;

  void show(ViewedApp app, Platform platform, std::size_t index);

 Q_SIGNALS:
  void wentTo(const quillet::ViewedPicture& viewed);
  void closed();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  struct Saved {
    std::size_t count = 0;
    std::size_t unread = 0;
  };

  static Task<> saveOne(QPointer<ScreenshotViewer> viewer, std::filesystem::path file,
                        std::string bytes);
  static Task<> saveAll(QPointer<ScreenshotViewer> viewer, std::filesystem::path folder,
                        StopToken stop);
  static Task<> saveEach(QPointer<ScreenshotViewer> viewer, std::filesystem::path folder,
                         StopToken stop, Saved* saved);

  [[nodiscard]] const PlatformPictures& shown() const { return app_.pictures[chosen_]; }
  [[nodiscard]] std::string fileName(std::size_t index, const std::string& bytes) const;
  [[nodiscard]] std::filesystem::path folder() const;
  QHBoxLayout* makeBar();
  QAbstractButton* addTool(QHBoxLayout& bar, const char* icon, const QString& tip,
                           void (PictureCanvas::*act)());
  QPushButton* addButton(QHBoxLayout& bar, const QString& text, const QString& keys,
                         void (ScreenshotViewer::*act)());
  void makeTabs();
  void choose(std::size_t platform, std::size_t index);
  void go(std::size_t index);
  bool goesByKey(const QKeyEvent& event);
  bool zoomsByKey(const QKeyEvent& event);
  bool actsByKey(const QKeyEvent& event);
  void follow();
  void tellZoom();
  void copy();
  void askForFile();
  void askForFolder();
  void setSaving(bool isSaving);

  ViewWorld world_;
  ViewedApp app_;
  std::size_t chosen_ = 0;  ///< of the platforms
  OriginalPicture original_;
  StopSource saving_;
  bool isSaving_ = false;

  PageText* name_;
  PageText* position_;
  QHBoxLayout* tabRoom_;
  SegmentedControl* tabs_ = nullptr;
  QPushButton* zoom_;
  std::vector<QAbstractButton*> ofPicture_;  ///< buttons that need it
  QPushButton* saveAll_;
  PictureCanvas* canvas_;
  PictureStrip* strip_;
  ViewerNotice* notice_;
};

}  // namespace quillet
