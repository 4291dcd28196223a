// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/my_apps/upgrade_chooser.h"

#include <QComboBox>
#include <QEvent>
#include <QSignalBlocker>
#include <QStyle>

#include "analysis/system_upgrade.h"
#include "desktop/lists/text_label.h"
#include "desktop/look/look.h"
#include "desktop/sections/my_apps/upgrade_result.h"

namespace quillet {

namespace {

constexpr int kGap = 8;
constexpr int kSystem = 64;

/// Wide enough for "15.2", whichever are to choose from.
QSize sizeOf(const QComboBox& system) {
  const auto wide = static_cast<int>(kSystem * lookOf(system).growth());
  return {std::max(wide, system.sizeHint().width()), system.sizeHint().height()};
}

UpgradeOutlook outlookOf(const AppRow& row, const std::string& system) {
  if (!row.care || row.platform != Platform::mac) return UpgradeOutlook::unknown;
  return outlookOn(system, {row.care->needsRosetta, row.care->minimumSystem, row.care->is32Bit});
}

}  // namespace

UpgradeChooser::UpgradeChooser()
    : name_(new TextLabel(kBodyType, Token::secondary, TextAnchor::left, this)),
      system_(new QComboBox(this)),
      result_(new UpgradeResult(this)) {
  setAccessibleName(tr("Upgrade of macOS"));
  name_->setText(tr("If I upgrade to macOS"));
  name_->setBuddy(system_);
  system_->setToolTip(name_->text());
  system_->setAccessibleName(tr("Version of macOS"));
  for (const std::string_view each : kMacSystems)
    system_->addItem(QString::fromUtf8(each.data(), static_cast<qsizetype>(each.size())));
  system_->setCurrentIndex(system_->count() - 1);
  connect(system_, &QComboBox::currentTextChanged, this, &UpgradeChooser::systemChosen);
  connect(result_, &UpgradeResult::chosen, this, &UpgradeChooser::appChosen);
}

void UpgradeChooser::choose(const QString& system) {
  const QSignalBlocker untold(system_);
  const int place = system_->findText(system);
  system_->setCurrentIndex(place < 0 ? system_->count() - 1 : place);
}

void UpgradeChooser::show(const RowFilterModel& rows) {
  const std::string system = system_->currentText().toStdString();
  UpgradeTold told;
  for (int i = 0; i < rows.rowCount(); ++i) {
    const AppRow& row = rows.at(i);
    switch (outlookOf(row, system)) {
      case UpgradeOutlook::stops: told.stopped.push_back({row.key, row.name}); break;
      case UpgradeOutlook::stopped: told.of32Bits.push_back({row.key, row.name}); break;
      case UpgradeOutlook::needsNewer: told.older.push_back({row.key, row.name}); break;
      case UpgradeOutlook::unknown: ++told.unknown; break;
      case UpgradeOutlook::runs: break;
    }
  }
  result_->show(std::move(told));
}

QSize UpgradeChooser::sizeHint() const {
  const QSize least = minimumSizeHint();
  return {least.width() + kGap + name_->sizeHint().width(), least.height()};
}

QSize UpgradeChooser::minimumSizeHint() const {
  const QSize system = sizeOf(*system_);
  const QSize result = result_->sizeHint();
  return {system.width() + kGap + result.width(), std::max(system.height(), result.height())};
}

void UpgradeChooser::arrange() {
  int right = width();
  const auto put = [&](QWidget* widget, const QSize& size) {
    const QRect place(right - size.width(), (height() - size.height()) / 2, size.width(),
                      size.height());
    widget->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
    right -= size.width() + kGap;
  };
  put(result_, result_->sizeHint());
  put(system_, sizeOf(*system_));
  name_->setVisible(right >= name_->sizeHint().width());
  put(name_, name_->sizeHint());
}

void UpgradeChooser::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

/// A part that needs another width says so by this.
bool UpgradeChooser::event(QEvent* event) {
  const bool isHandled = QWidget::event(event);
  if (event->type() == QEvent::LayoutRequest) arrange();
  return isHandled;
}

}  // namespace quillet
