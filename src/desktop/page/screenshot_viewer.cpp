// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/screenshot_viewer.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QFile>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QStandardPaths>
#include <QToolButton>
#include <algorithm>
#include <cmath>

#include "base/errors.h"
#include "desktop/images/image_decoder.h"
#include "desktop/images/image_store.h"
#include "desktop/look/button_look.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/segmented_control.h"
#include "desktop/look/widgets.h"
#include "desktop/models/row_parts.h"
#include "desktop/page/kept_size.h"
#include "desktop/page/page_text.h"
#include "desktop/page/picture_canvas.h"
#include "desktop/page/picture_files.h"
#include "desktop/page/picture_strip.h"
#include "desktop/page/viewer_notice.h"
#include "desktop/services/last_folders.h"
#include "net/worker.h"
#include "system/whole_file.h"

namespace quillet {

namespace {

constexpr QSize kSize(1120, 780);
constexpr QSize kLeastSize(720, 480);
constexpr double kOfScreen = 0.9;
constexpr int kBar = 52;
constexpr int kBarAir = 10;
constexpr int kInset = 12;
constexpr int kGap = 8;
constexpr StripLook kFilmStrip{.height = 64, .radius = 5, .gap = 8, .marksCurrent = true};
constexpr int kAroundStrip = 12;
constexpr int kPreviewHeight = 220;  // as in the page's strip, which has it

QString sizeKey() { return QStringLiteral("screenshotsWindow"); }

QString purpose() { return QStringLiteral("screenshots"); }

QString pathText(const std::filesystem::path& path) { return QFile::decodeName(path.c_str()); }

}  // namespace

ScreenshotViewer::ScreenshotViewer(const ViewWorld& world, QWidget* parent)
    : QWidget(parent, Qt::Window),
      world_(world),
      original_(world.images),
      name_(new PageText({.type = kSectionType, .lineHeight = 24, .lines = 1}, this)),
      position_(new PageText(
          {.type = kFactType.tabular(), .ink = Token::tertiary, .lineHeight = 24, .lines = 1},
          this)),
      tabRoom_(new QHBoxLayout),
      zoom_(new QPushButton(this)),
      canvas_(new PictureCanvas(this)),
      strip_(new PictureStrip(world.images, kFilmStrip, this)),
      notice_(new ViewerNotice(canvas_)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setMinimumSize(kLeastSize);
  strip_->setFocusPolicy(Qt::NoFocus);
  position_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);  // the name gives way
  auto* film = new QHBoxLayout;
  film->setContentsMargins(kInset, kAroundStrip, kInset, kAroundStrip);
  film->addWidget(strip_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addLayout(makeBar());
  layout->addWidget(canvas_, 1);
  layout->addLayout(film);
  connect(&original_, &OriginalPicture::changed, this, &ScreenshotViewer::follow);
  connect(canvas_, &PictureCanvas::zoomed, this, &ScreenshotViewer::tellZoom);
  connect(canvas_, &PictureCanvas::triesAgain, this, [this] { original_.tryAgain(); });
  connect(strip_, &PictureStrip::currentChanged, this, &ScreenshotViewer::go);
}

ScreenshotViewer::~ScreenshotViewer() { saving_.requestStop(); }

QHBoxLayout* ScreenshotViewer::makeBar() {
  auto* bar = new QHBoxLayout;
  bar->setContentsMargins(kInset + 4, kBarAir, kInset, kBarAir);
  bar->setSpacing(kGap);
  bar->addWidget(name_, 0, Qt::AlignVCenter);
  bar->addWidget(position_, 0, Qt::AlignVCenter);
  bar->addStretch(1);
  bar->addLayout(tabRoom_);
  bar->addSpacing(kGap);
  addTool(*bar, "zoom-out", tr("Smaller (Ctrl+Minus)"), &PictureCanvas::zoomOut);
  setButtonKind(*zoom_, ButtonKind::flat);
  connect(zoom_, &QPushButton::clicked, canvas_, &PictureCanvas::toggleZoom);
  ofPicture_.push_back(zoom_);
  bar->addWidget(zoom_);
  addTool(*bar, "zoom-in", tr("Larger (Ctrl+Plus)"), &PictureCanvas::zoomIn);
  bar->addSpacing(kGap);
  ofPicture_.push_back(addButton(*bar, tr("Copy Image"), tr("Ctrl+C"), &ScreenshotViewer::copy));
  ofPicture_.push_back(
      addButton(*bar, tr("Save As…"), tr("Ctrl+S"), &ScreenshotViewer::askForFile));
  saveAll_ = addButton(*bar, tr("Save All…"), tr("Ctrl+Shift+S"), &ScreenshotViewer::askForFolder);
  bar->addStrut(kBar - 2 * kBarAir);
  return bar;
}

QAbstractButton* ScreenshotViewer::addTool(QHBoxLayout& bar, const char* icon, const QString& tip,
                                           void (PictureCanvas::*act)()) {
  auto* button = new QToolButton(this);
  setIconName(*button, QString::fromLatin1(icon));
  button->setToolTip(tip);
  button->setAccessibleName(tip.section(QStringLiteral(" ("), 0, 0));
  button->setFocusPolicy(Qt::TabFocus);
  connect(button, &QToolButton::clicked, canvas_, act);
  bar.addWidget(button);
  ofPicture_.push_back(button);
  return button;
}

QPushButton* ScreenshotViewer::addButton(QHBoxLayout& bar, const QString& text, const QString& keys,
                                         void (ScreenshotViewer::*act)()) {
  auto* button = new QPushButton(text, this);
  button->setToolTip(QStringLiteral("%1 (%2)").arg(text, keys));
  connect(button, &QPushButton::clicked, this, act);
  bar.addWidget(button);
  return button;
}

void ScreenshotViewer::show(ViewedApp app, Platform platform, std::size_t index) {
  std::erase_if(app.pictures, [](const PlatformPictures& each) {
    return each.addresses.value_or(std::vector<std::string>()).empty();
  });
  if (app.pictures.empty()) return;
  if (app.app != app_.app) setSaving(false);
  app_ = std::move(app);
  name_->show(nameLine(app_.name));
  setWindowTitle(tr("Screenshots of %1").arg(nameLine(app_.name)));
  const auto found = std::ranges::find(app_.pictures, platform, &PlatformPictures::platform);
  const bool isThere = found != app_.pictures.end();
  makeTabs();
  choose(isThere ? static_cast<std::size_t>(found - app_.pictures.begin()) : 0,
         isThere ? index : 0);
  if (!isVisible()) {
    resize(keptSize(world_.state, sizeKey(), kSize, kLeastSize)
               .boundedTo(screen()->availableSize() * kOfScreen));
  }
  bringUp(*this);
  canvas_->setFocus(Qt::OtherFocusReason);
}

void ScreenshotViewer::makeTabs() {
  delete std::exchange(tabs_, nullptr);
  if (app_.pictures.size() < 2) return;
  QStringList names;
  for (const PlatformPictures& each : app_.pictures) names << platformText(each.platform);
  tabs_ = new SegmentedControl(tr("Platform"), names, this);
  tabRoom_->addWidget(tabs_);
  connect(tabs_, &SegmentedControl::chosenChanged, this,
          [this](int tab) { choose(static_cast<std::size_t>(tab), 0); });
}

void ScreenshotViewer::choose(std::size_t platform, std::size_t index) {
  chosen_ = platform;
  if (tabs_ != nullptr) tabs_->choose(static_cast<int>(platform));
  strip_->show(shown().platform, *shown().addresses);
  go(std::min(index, strip_->count() - 1));
}

void ScreenshotViewer::go(std::size_t index) {
  if (index >= strip_->count()) return;
  strip_->setCurrent(index);
  if (!isSaving_) notice_->say({}, NoticeKind::staying);
  canvas_->setAccessibleName(pictureTitle(index, strip_->count(), shown().platform));
  position_->show(tr("%1 of %2").arg(QString::number(index + 1), QString::number(strip_->count())));
  original_.show((*shown().addresses)[index]);
  Q_EMIT wentTo({app_.app, shown().platform, index});
}

void ScreenshotViewer::follow() {
  using State = OriginalPicture::State;
  if (original_.state() == State::loading) {
    const QPixmap* preview = world_.images.find(PictureStrip::keyOf(
        original_.address(), shown().platform, kPreviewHeight, devicePixelRatioF()));
    canvas_->showPreview(preview == nullptr ? QPixmap() : *preview);
  } else if (original_.state() == State::ready) {
    canvas_->showPicture(original_.image());
  } else {
    canvas_->showFailure(tr("This screenshot could not be read."));
  }
  for (QAbstractButton* button : ofPicture_) button->setEnabled(original_.state() == State::ready);
}

void ScreenshotViewer::tellZoom() {
  const auto percent = std::lround(canvas_->zoom().scale() * 100);
  const bool isReady = original_.state() == OriginalPicture::State::ready;
  const QString text = QStringLiteral("%1\u00a0%").arg(percent);
  zoom_->setText(isReady ? text : QStringLiteral("–"));
  zoom_->setAccessibleName(tr("Zoom"));
  zoom_->setAccessibleDescription(isReady ? text : QString());
  zoom_->setToolTip(canvas_->zoom().isFit() ? tr("Actual size (Z)") : tr("Fit the window (Z)"));
}

void ScreenshotViewer::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  painter.fillRect(rect(), look[Token::base]);
  PixelGrid grid(painter);
  grid.horizontal(0, width(), canvas_->geometry().top() - 1, look[Token::line]);
  grid.horizontal(0, width(), canvas_->geometry().bottom() + 1, look[Token::line]);
}

void ScreenshotViewer::keyPressEvent(QKeyEvent* event) {
  if (!goesByKey(*event) && !zoomsByKey(*event) && !actsByKey(*event))
    QWidget::keyPressEvent(event);
}

bool ScreenshotViewer::goesByKey(const QKeyEvent& event) {
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
  const std::size_t current = strip_->current();
  switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right: {
      const bool goesBack = (event.key() == Qt::Key_Left) != isMirrored;
      go(goesBack ? current - std::min<std::size_t>(current, 1) : current + 1);
      return true;
    }
    case Qt::Key_Home: go(0); return true;
    case Qt::Key_End: go(strip_->count() - 1); return true;
    default: return false;
  }
}

bool ScreenshotViewer::zoomsByKey(const QKeyEvent& event) {
  const bool hasControl = event.modifiers().testFlag(Qt::ControlModifier);
  const bool hasShift = event.modifiers().testFlag(Qt::ShiftModifier);
  switch (event.key()) {
    case Qt::Key_Z:
    case Qt::Key_Space:
      if (hasControl) return false;
      canvas_->toggleZoom();
      return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      if (hasControl) canvas_->zoomIn();
      return hasControl;
    case Qt::Key_Minus:
      if (hasControl) canvas_->zoomOut();
      return hasControl;
    case Qt::Key_0:
      if (hasControl) canvas_->fit();
      return hasControl;
    case Qt::Key_Up: canvas_->move(0, -1); return true;
    case Qt::Key_Down: canvas_->move(0, 1); return true;
    case Qt::Key_Left:
      if (hasShift) canvas_->move(-1, 0);
      return hasShift;
    case Qt::Key_Right:
      if (hasShift) canvas_->move(1, 0);
      return hasShift;
    default: return false;
  }
}

bool ScreenshotViewer::actsByKey(const QKeyEvent& event) {
  const bool isReady = original_.state() == OriginalPicture::State::ready;
  const auto is = [&](Qt::KeyboardModifiers modifiers, Qt::Key key) {
    return event.key() == key && event.modifiers() == modifiers;
  };
  if (is(Qt::NoModifier, Qt::Key_Escape) || is(Qt::ControlModifier, Qt::Key_W)) {
    close();
  } else if (is(Qt::ControlModifier, Qt::Key_C)) {
    if (isReady) copy();
  } else if (is(Qt::ControlModifier, Qt::Key_S)) {
    if (isReady) askForFile();
  } else if (is(Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_S)) {
    askForFolder();
  } else {
    return false;
  }
  return true;
}

void ScreenshotViewer::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (isVisible()) keepSize(world_.state, sizeKey(), size());
}

void ScreenshotViewer::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  Q_EMIT closed();
}

void ScreenshotViewer::copy() {
  QGuiApplication::clipboard()->setImage(original_.image());
  notice_->say(tr("Copied."), NoticeKind::passing);
}

std::string ScreenshotViewer::fileName(std::size_t index, const std::string& bytes) const {
  return pictureFileName(app_.name, shown().platform, index + 1, pictureEnding(bytes));
}

std::filesystem::path ScreenshotViewer::folder() const {
  const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
  return lastFolder(world_.state, purpose(), QFile::encodeName(pictures).toStdString());
}

void ScreenshotViewer::askForFile() {
  const std::string& bytes = original_.bytes();
  world_.prompts.chooseSaveFile(
      {tr("Save Screenshot"), folder() / fileName(strip_->current(), bytes)}, this,
      [this, bytes](const std::filesystem::path& file) {
        rememberFolder(world_.state, purpose(), file.parent_path());
        detach(saveOne(this, file, bytes), "a screenshot");
      });
}

Task<> ScreenshotViewer::saveOne(QPointer<ScreenshotViewer> viewer, std::filesystem::path file,
                                 std::string bytes) {
  QString text = tr("Saved %1.").arg(pathText(file.filename()));
  NoticeKind kind = NoticeKind::passing;
  auto write = [file, bytes = std::move(bytes)] { replaceFile(file, bytes); };
  try {
    co_await onWorker(std::move(write));
  } catch (const FileError& error) {
    text = QString::fromUtf8(error.what());
    kind = NoticeKind::staying;
  }
  if (viewer) viewer->notice_->say(text, kind);
}

void ScreenshotViewer::askForFolder() {
  if (isSaving_) return;
  world_.prompts.chooseFolder({tr("Save All Screenshots"), folder()}, this,
                              [this](const std::filesystem::path& folder) {
                                rememberFolder(world_.state, purpose(), folder);
                                setSaving(true);
                                detach(saveAll(this, folder, saving_.token()), "screenshots");
                              });
}

/// What was being saved before is given up.
void ScreenshotViewer::setSaving(bool isSaving) {
  std::exchange(saving_, StopSource()).requestStop();
  isSaving_ = isSaving;
  saveAll_->setEnabled(!isSaving);
}

Task<> ScreenshotViewer::saveAll(QPointer<ScreenshotViewer> viewer, std::filesystem::path folder,
                                 StopToken stop) {
  Saved saved;
  QString problem;
  try {
    co_await saveEach(viewer, folder, stop, &saved);
  } catch (const FileError& error) {
    problem = QString::fromUtf8(error.what());
  }
  if (viewer.isNull() || stop.stopRequested()) co_return;
  viewer->setSaving(false);
  const QString count =
      tr("Saved %1 of %2")
          .arg(QString::number(saved.count), QString::number(saved.count + saved.unread));
  if (problem.isEmpty() && saved.unread > 0) {
    problem = tr("%1; the others could not be read.").arg(count);
  }
  const bool isDone = problem.isEmpty();
  viewer->notice_->say(isDone ? tr("%1 in %2.").arg(count, pathText(folder)) : problem,
                       isDone ? NoticeKind::passing : NoticeKind::staying);
}

/// Throws FileError with the first that cannot be written.
Task<> ScreenshotViewer::saveEach(QPointer<ScreenshotViewer> viewer, std::filesystem::path folder,
                                  StopToken stop, Saved* saved) {
  const PlatformPictures pictures = viewer->shown();
  const std::string name = viewer->app_.name;
  for (std::size_t i = 0; i < pictures.addresses->size(); ++i) {
    std::string bytes;
    try {
      bytes = co_await viewer->world_.images.original((*pictures.addresses)[i], stop);
    } catch (const NetworkError&) {
      bytes.clear();
    }
    if (viewer.isNull() || stop.stopRequested()) co_return;
    if (bytes.empty()) {
      ++saved->unread;
      continue;
    }
    auto write = [folder, bytes,
                  file = pictureFileName(name, pictures.platform, i + 1, pictureEnding(bytes))] {
      addFile(folder, file, bytes);
    };
    co_await onWorker(std::move(write));
    if (viewer.isNull() || stop.stopRequested()) co_return;
    ++saved->count;
    viewer->notice_->say(
        tr("Saved %1 of %2")
            .arg(QString::number(saved->count), QString::number(pictures.addresses->size())),
        NoticeKind::staying);
  }
}

}  // namespace quillet
