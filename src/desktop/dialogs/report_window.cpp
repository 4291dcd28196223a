// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/report_window.h"

#include <QAccessible>
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <algorithm>

#include "base/errors.h"
#include "base/file_names.h"
#include "desktop/dialogs/report_preview.h"
#include "desktop/lists/list_strip.h"
#include "desktop/look/dialog_button.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/page/kept_size.h"
#include "desktop/page/link_button.h"
#include "desktop/page/page_text.h"
#include "desktop/services/last_folders.h"
#include "net/worker.h"
#include "system/settings_keys.h"
#include "system/whole_file.h"

namespace quillet {

namespace {

using namespace Qt::StringLiterals;

constexpr QSize kUsualSize(880, 660);
constexpr QSize kLeastSize(560, 400);
constexpr double kMostGrowth = 1.4;
constexpr int kFootInset = 12;
constexpr int kGap = 8;

// Laying out some hundred reviews takes longer than a frame; how a report looks is seen before.
constexpr std::size_t kPreviewed = 25;

// Stored; never change.
QString purpose() { return u"report"_s; }
QString wishKey() { return u"report"_s; }
QString sizeKey() { return u"reportWindow"_s; }

std::size_t sizeOf(const auto& list) { return list ? list->size() : 0; }

std::string endingOf(ReportForm form) { return '.' + std::string(textOf(kReportForms, form)); }

}  // namespace

ReportWindow::ReportWindow(const ViewWorld& world, QWidget* parent)
    : QDialog(parent),
      world_(world),
      formats_(world.locale),
      source_(world),
      choices_(new ReportChoices(reportWishOf(world.state.value(wishKey()).toObject()))),
      strip_(new ListStrip(world.clock)),
      preview_(new ReportPreview),
      nothing_(new PageText({.type = kBodyType, .ink = Token::secondary})),
      remark_(new PageText({.type = kFactType, .ink = Token::secondary, .lineHeight = 16})),
      stop_(new LinkButton(tr("Stop"), kSmallControlType)),
      reveal_(new LinkButton(tr("Show in Files"), kSmallControlType)),
      copy_(new DialogButton(tr("Copy"))),
      print_(new DialogButton(tr("Print…"))),
      save_(new DialogButton(tr("Save As…"), ButtonKind::primary)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setMinimumSize(kLeastSize);
  lay();
  const double growth = std::min(lookOf(*this).growth(), kMostGrowth);
  resize(keptSize(world.state, sizeKey(), kUsualSize * growth, kLeastSize));
  change_.setSingleShot(true);
  change_.setInterval(0);
  connect(&source_, &ReportSource::changed, &change_, qOverload<>(&QTimer::start));
  connect(&change_, &QTimer::timeout, this, &ReportWindow::refresh);
  connect(strip_, &ListStrip::acted, &source_, &ReportSource::act);
  connect(stop_, &QAbstractButton::clicked, this, [this] { source_.act(StripAction::stop); });
  connect(choices_, &ReportChoices::wishChanged, this, &ReportWindow::takeWish);
  connect(choices_, &ReportChoices::storefrontChosen, this,
          [this](const std::string& country) { show({app_.trackId, country}); });
  connect(preview_, &ReportPreview::linkWanted, this,
          [this](const QString& address) { world_.prompts.openLink(address.toStdString()); });
  connect(copy_, &QAbstractButton::clicked, this, &ReportWindow::copy);
  connect(print_, &QAbstractButton::clicked, this, &ReportWindow::print);
  connect(save_, &QAbstractButton::clicked, this, &ReportWindow::save);
  connect(reveal_, &QAbstractButton::clicked, this, [this] { world_.prompts.showInFiles(saved_); });
  connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, save_,
          &QAbstractButton::click);
  connect(new QShortcut(QKeySequence::Print, this), &QShortcut::activated, print_,
          &QAbstractButton::click);
  connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, &QDialog::reject);
  source_.wantReviews(choices_->wish().reviews);
  choices_->takeFocus();
}

void ReportWindow::lay() {
  save_->setDefault(true);
  auto* middle = new QHBoxLayout;
  middle->setContentsMargins({});
  middle->setSpacing(1);  // a line
  middle->addWidget(preview_, 1);
  middle->addWidget(nothing_, 1, Qt::AlignCenter);
  middle->addWidget(choices_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->setSpacing(0);
  column->addWidget(strip_);
  column->addLayout(middle, 1);
  column->addLayout(makeFoot());
}

QHBoxLayout* ReportWindow::makeFoot() {
  auto* foot = new QHBoxLayout;
  foot->setContentsMargins(kFootInset, kFootInset, kFootInset, kFootInset);
  foot->setSpacing(kGap);
  foot->addWidget(remark_, 1);
  foot->addWidget(stop_);
  foot->addWidget(reveal_);
  foot->addStretch();
  foot->addWidget(copy_);
  foot->addWidget(print_);
  foot->addWidget(save_);
  return foot;
}

void ReportWindow::show(const AppKey& app) {
  app_ = app;
  isToPrint_ = false;
  said_.clear();
  choices_->setStorefront(app.country);
  source_.show(app);
}

void ReportWindow::takeWish() {
  const ReportWish wish = choices_->wish();
  said_.clear();
  world_.state.setValue(wishKey(), jsonOf(wish));
  source_.wantReviews(wish.without.contains(ReportPart::reviews) ? 0 : wish.reviews);
}

std::optional<AppReport> ReportWindow::report() const {
  const auto known = source_.known();
  if (!known) return {};
  const ReportOccasion occasion{world_.clock.now(), world_.zone,
                                readMaintenanceThresholds(world_.settings)};
  return withoutParts(appReport(*known, occasion, formats_), choices_->wish().without);
}

void ReportWindow::refresh() {
  const QString name = source_.name();
  setWindowTitle(name.isEmpty() ? tr("App Report") : tr("Report on %1").arg(name));
  strip_->setState(source_.state());
  const auto report = this->report();
  for (QWidget* each : {copy_, print_, save_}) each->setEnabled(report.has_value());
  preview_->setVisible(report.has_value());
  if (!report) return showNothing();
  nothing_->show({});
  const ReportForm form = choices_->wish().form;
  preview_->show(reportText(beginningOf(*report, kPreviewed), form), form);
  showRemark(*report);
  if (isToPrint_ && source_.isSettled()) {
    isToPrint_ = false;
    print();
  }
}

void ReportWindow::printWhenKnown() {
  isToPrint_ = true;
  refresh();
}

void ReportWindow::showNothing() {
  nothing_->show(source_.isSettled() ? tr("Nothing is known of this app in this storefront.")
                                     : tr("Asking the store…"));
  for (QWidget* each : std::initializer_list<QWidget*>{stop_, reveal_}) each->hide();
  remark_->show({});
}

void ReportWindow::showRemark(const AppReport& report) {
  const auto reading = source_.reviewsSoFar();
  stop_->setVisible(reading.has_value());
  reveal_->setVisible(!said_.isEmpty() && !saved_.empty());
  const std::size_t most = std::max(
      {sizeOf(report.versionHistory), sizeOf(report.reviews), sizeOf(report.priceHistory)});
  QString text = said_;
  if (reading) {
    text = tr("Reading reviews: %1 so far").arg(QString::number(*reading));
  } else if (text.isEmpty() && most > kPreviewed) {
    text = tr("The preview is shortened; the report has %1 reviews and %2 prices.")
               .arg(QString::number(sizeOf(report.reviews)),
                    QString::number(sizeOf(report.priceHistory)));
  }
  remark_->show(text);
}

void ReportWindow::say(const QString& text) {
  said_ = text;
  refresh();
  QAccessibleEvent event(remark_, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

/// In the sizes that the report itself says, whatever that of the window's texts.
QFont ReportWindow::paperFont() const {
  QFont font = preview_->font();
  font.setPixelSize(static_cast<int>(kBodyType.pixels));
  return font;
}

void ReportWindow::copy() {
  const auto report = this->report();
  if (!report) return;
  const ReportForm form = choices_->wish().form;
  const QString text = QString::fromStdString(reportText(*report, form));
  auto* data = new QMimeData;
  data->setText(form == ReportForm::pdf
                    ? QString::fromStdString(reportText(*report, ReportForm::markdown))
                    : text);
  if (form == ReportForm::html || form == ReportForm::pdf) data->setHtml(text);
  QGuiApplication::clipboard()->setMimeData(data);
  saved_.clear();
  say(tr("Copied the report."));
}

void ReportWindow::save() {
  auto report = this->report();
  if (!report) return;
  const ReportForm form = choices_->wish().form;
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const auto folder =
      lastFolder(world_.state, purpose(), QFile::encodeName(documents).toStdString());
  const std::string name = fileNameOf(report->name);
  const auto suggested = folder / ((name.empty() ? "report" : name) + endingOf(form));
  world_.prompts.chooseSaveFile(
      {tr("Save Report"), suggested}, this,
      [this, form, report = std::move(*report)](const std::filesystem::path& file) {
        rememberFolder(world_.state, purpose(), file.parent_path());
        detach(write(this, file, form, report), "A report");
      });
}

Task<> ReportWindow::write(QPointer<ReportWindow> window, std::filesystem::path file,
                           ReportForm form, AppReport report) {
  QString text = tr("Saved %1.").arg(QFile::decodeName(file.filename().c_str()));
  std::filesystem::path saved = file;
  try {
    auto make = [file, form, report = std::move(report), font = window->paperFont()] {
      replaceFile(file, reportFile(report, form, font));
    };
    co_await onWorker(std::move(make));
  } catch (const FileError& error) {
    text = QString::fromUtf8(error.what());
    saved.clear();
  }
  if (!window) co_return;
  window->saved_ = saved;
  window->say(text);
}

void ReportWindow::print() {
  auto report = this->report();
  if (!report) return;
  world_.prompts.choosePrinter(
      windowTitle(), this,
      [report = std::move(*report), font = paperFont()](QPagedPaintDevice& printer) {
        printReport(report, font, printer);
      });
}

void ReportWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  painter.fillRect(rect(), look[Token::base]);
  PixelGrid grid(painter);
  const QRect choices = choices_->geometry();
  const int edge = layoutDirection() == Qt::RightToLeft ? choices.right() + 1 : choices.left() - 1;
  grid.horizontal(0, width(), choices.bottom() + 1, look[Token::line]);
  grid.vertical(edge, choices.top(), choices.bottom() + 1, look[Token::line]);
}

void ReportWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  if (isVisible()) keepSize(world_.state, sizeKey(), size());
}

}  // namespace quillet
