// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/export_library.h"

#include <QAccessible>
#include <QComboBox>
#include <QFile>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/file_names.h"
#include "desktop/lists/text_label.h"
#include "desktop/look/dialog_button.h"
#include "desktop/look/look.h"
#include "desktop/look/segmented_control.h"
#include "desktop/look/widgets.h"
#include "desktop/models/row_parts.h"
#include "desktop/page/page_text.h"
#include "net/worker.h"
#include "system/locale_formats.h"
#include "system/whole_file.h"

namespace quillet {

namespace {

constexpr int kWidth = 460;
constexpr double kMostGrowth = 1.4;
constexpr int kMargin = 24;
constexpr int kTop = 20;
constexpr int kGap = 8;
constexpr qsizetype kShownName = 60;

// What stands before the collections among what can be chosen.
enum What { kEverything, kWatchlist, kAllCollections, kFirstCollection };

QString shortened(const QString& name) {
  return name.size() > kShownName ? name.left(kShownName) + u'…' : name;
}

QLabel* makeLabel(const QString& text, QWidget* buddy) {
  auto* label = new QLabel(text);
  label->setBuddy(buddy);
  return label;
}

}  // namespace

ExportLibraryDialog::ExportLibraryDialog(std::shared_ptr<const LibraryExport> library,
                                         ExportFormat format, std::optional<std::size_t> collection,
                                         const ViewWorld& world, QWidget* parent)
    : QDialog(parent),
      world_(world),
      library_(std::move(library)),
      what_(new QComboBox),
      format_(new SegmentedControl(tr("Format"), {QStringLiteral("JSON"), QStringLiteral("CSV")})),
      use_(new PageText({.type = kFactType, .ink = Token::secondary, .lineHeight = 17})),
      amount_(new PageText({.type = kBodyType})),
      exports_(new DialogButton(tr("Export…"), ButtonKind::primary)) {
  setWindowTitle(tr("Export Library"));
  setAccessibleName(windowTitle());
  setAttribute(Qt::WA_DeleteOnClose);
  setFixedWidth(static_cast<int>(kWidth * std::min(lookOf(*this).growth(), kMostGrowth)));
  fill();
  if (collection) what_->setCurrentIndex(kFirstCollection + static_cast<int>(*collection));
  format_->choose(format == ExportFormat::json ? 0 : 1);
  lay();
  connect(what_, &QComboBox::currentIndexChanged, this, &ExportLibraryDialog::measure);
  connect(format_, &SegmentedControl::chosenChanged, this, &ExportLibraryDialog::measure);
  connect(exports_, &QPushButton::clicked, this, &ExportLibraryDialog::askForFile);
  exports_->setDefault(true);
  measure();
  what_->setFocus();
}

void ExportLibraryDialog::fill() {
  what_->setAccessibleName(tr("What to export"));
  what_->addItem(tr("Watchlist and collections"));
  what_->addItem(tr("Watchlist"));
  what_->addItem(tr("All collections"));
  for (const CollectionItem& each : library_->collections)
    what_->addItem(tr("Collection “%1”").arg(shortened(collectionLine(each.name))));
  what_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
}

void ExportLibraryDialog::lay() {
  auto* title = new TextLabel(kSectionType, Token::text);
  title->setText(windowTitle());
  auto* formats = new QHBoxLayout;
  formats->addWidget(format_);
  formats->addStretch(1);
  auto* cancel = new DialogButton(tr("Cancel"));
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kTop, kMargin, kTop);
  column->setSpacing(kGap);
  column->addWidget(title);
  column->addSpacing(kGap);
  column->addWidget(makeLabel(tr("What to export"), what_));
  column->addWidget(what_);
  column->addSpacing(kGap);
  column->addWidget(makeLabel(tr("Format"), format_));
  column->addLayout(formats);
  column->addWidget(use_);
  column->addSpacing(kGap);
  column->addWidget(amount_);
  column->addSpacing(kGap);
  column->addLayout(buttonRow({}, {cancel, exports_}));
}

ExportFormat ExportLibraryDialog::format() const {
  return format_->chosen() == 0 ? ExportFormat::json : ExportFormat::csv;
}

LibraryExport ExportLibraryDialog::chosen() const {
  const int what = what_->currentIndex();
  if (what == kEverything) return *library_;
  LibraryExport part{library_->exportedAt, {}, {}};
  if (what == kWatchlist) part.watchlist = library_->watchlist;
  if (what == kAllCollections) part.collections = library_->collections;
  if (what >= kFirstCollection)
    part.collections = {
        library_->collections.at(static_cast<std::size_t>(what - kFirstCollection))};
  return part;
}

/// What is chosen is made at once, on a worker, so that its size can be told.
void ExportLibraryDialog::measure() {
  const bool isJson = format() == ExportFormat::json;
  use_->show(isJson ? tr("Can be imported again, here or on another computer.")
                    : tr("A table for spreadsheets. It cannot be imported again."));
  text_.reset();
  exports_->setEnabled(false);
  fit();
  detach(render(this, chosen(), format(), ++generation_), "An export");
}

Task<> ExportLibraryDialog::render(QPointer<ExportLibraryDialog> dialog, LibraryExport document,
                                   ExportFormat format, int generation) {
  const QString amount = amountOf(document);
  const bool isNothing = document.watchlist.empty() && document.collections.empty();
  auto make = [document = std::move(document), format] { return textOf(document, format); };
  std::string text = co_await onWorker(std::move(make));
  if (!dialog || dialog->generation_ != generation) co_return;
  const LocaleFormats formats(dialog->world_.locale);
  const QString size =
      QString::fromStdString(formats.byteCount(static_cast<std::int64_t>(text.size())));
  dialog->amount_->show(isNothing ? tr("There is nothing to export.")
                                  : tr("%1, %2").arg(amount, size));
  dialog->text_ = std::make_shared<const std::string>(std::move(text));
  dialog->exports_->setEnabled(!isNothing);
  dialog->fit();
}

/// As high as its texts, which wrap, ask for.
void ExportLibraryDialog::fit() { setFixedHeight(layout()->totalHeightForWidth(width())); }

void ExportLibraryDialog::askForFile() {
  if (text_ == nullptr) return;
  const int what = what_->currentIndex();
  std::string name = what == kWatchlist ? "Quillet Watchlist" : "Quillet Library";
  if (what >= kFirstCollection) {
    const std::string own = fileNameOf(
        library_->collections.at(static_cast<std::size_t>(what - kFirstCollection)).name);
    name = own.empty() ? "Quillet Collection" : own;
  }
  const QString amount = amountOf(chosen());
  world_.prompts.chooseSaveFile({tr("Export to File"), suggestedExport(world_, name, format())},
                                this,
                                [this, text = text_, amount](const std::filesystem::path& file) {
                                  rememberLibraryFolder(world_, file);
                                  detach(writeTo(this, file, text, amount), "An export");
                                });
}

Task<> ExportLibraryDialog::writeTo(QPointer<ExportLibraryDialog> dialog,
                                    std::filesystem::path file,
                                    std::shared_ptr<const std::string> text, QString amount) {
  QString failure;
  try {
    auto write = [file, text] { replaceFile(file, *text); };
    co_await onWorker(std::move(write));
  } catch (const std::exception& error) {
    failure = QString::fromUtf8(error.what());
  }
  if (!dialog) co_return;
  if (failure.isEmpty()) {
    const QString name = QFile::decodeName(file.filename().c_str());
    Q_EMIT dialog->exported(file, tr("Exported %1 to “%2”.").arg(amount, name));
    if (dialog) dialog->accept();
    co_return;
  }
  dialog->amount_->show(tr("Nothing was exported. %1").arg(failure));
  dialog->fit();
  QAccessibleEvent event(dialog->amount_, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

void ExportLibraryDialog::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), lookOf(*this)[Token::base]);
}

}  // namespace quillet
