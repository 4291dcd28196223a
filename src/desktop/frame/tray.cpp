// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/tray.h"

#include <QCoreApplication>
#include <QLocale>
#include <utility>

#include "base/errors.h"
#include "desktop/look/app_icon.h"
#include "desktop/look/widgets.h"
#include "desktop/models/row_parts.h"
#include "library/alerts.h"
#include "library/library_counts.h"

namespace quillet {

namespace {

constexpr std::int64_t kNamed = 5;

UnreadAlerts readAlerts(SQLite::Database& database) {
  return {unreadAlertCount(database), newestUnreadAlerts(database, kNamed),
          libraryCounts(database, {}).checked};
}

}  // namespace

Tray::Tray(LibraryGateway& library, Clock& clock, UtcOffsetAt zone,
           std::function<std::string()> storefront)
    : library_(library), clock_(clock), zone_(std::move(zone)), host_(std::move(storefront)) {
  fill();
  connect(&host_, &HostLink::changed, this, &Tray::sayChecks);
  // "12 min ago" grows old while nobody looks.
  connect(&menu_, &QMenu::aboutToShow, this, &Tray::sayChecks);
  connect(&library, &LibraryGateway::changed, this, [this](const LibraryChanges& changes) {
    if (!changes.alerts.empty()) wantAlerts();
  });
  connect(&library, &LibraryGateway::changedElsewhere, this, &Tray::wantAlerts);
}

void Tray::fill() {
  menu_.addMenu(&unread_)->setVisible(false);
  menu_.addSeparator();
  check_ = menu_.addAction(tr("Check Prices Now"), this, [this] { host_.checkPrices(); });
  checked_ = menu_.addAction(QString());
  checked_->setEnabled(false);
  menu_.addSeparator();
  menu_.addAction(tr("Watchlist"), this, [this] { Q_EMIT sectionWanted(SectionId::watchlist); });
  menu_.addAction(tr("Deals"), this, [this] { Q_EMIT sectionWanted(SectionId::deals); });
  menu_.addAction(tr("Open Quillet"), this, &Tray::windowWanted);
  menu_.addAction(tr("Settings…"), this, &Tray::settingsWanted);
  menu_.addSeparator();
  menu_.addAction(tr("Quit Quillet"), this, [] { QCoreApplication::quit(); });
  sayChecks();
}

void Tray::show() {
  if (icon_ == nullptr) {
    icon_ = std::make_unique<QSystemTrayIcon>();
    icon_->setContextMenu(&menu_);
    connect(icon_.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
              if (reason == QSystemTrayIcon::Trigger) Q_EMIT toggled();
            });
    paintIcon();
    wantAlerts();
  }
  icon_->show();
}

void Tray::hide() {
  if (icon_ != nullptr) icon_->hide();
}

void Tray::paint(const Palette& palette) {
  palette_ = palette;
  paintIcon();
}

/// For an icon, and one reading at a time.
void Tray::wantAlerts() {
  if (icon_ == nullptr) return;
  if (std::exchange(isReading_, true)) {
    isStale_ = true;
    return;
  }
  detach(read(this), "Alerts");
}

Task<> Tray::read(QPointer<Tray> tray) {
  std::optional<UnreadAlerts> alerts;
  try {
    alerts = co_await tray->library_.read(readAlerts);
  } catch (const DatabaseError&) {
    alerts.reset();  // it goes on telling what it told
  }
  if (!tray) co_return;
  tray->isReading_ = false;
  if (alerts) tray->take(*std::move(alerts));
  if (std::exchange(tray->isStale_, false)) tray->wantAlerts();
}

void Tray::take(UnreadAlerts alerts) {
  alerts_ = std::move(alerts);
  host_.setLastCheck(alerts_.checked);
  sayAlerts();
  sayChecks();
  paintIcon();
}

void Tray::sayAlerts() {
  const QString count = alerts_.count == 1
                            ? tr("1 unread alert")
                            : tr("%1 unread alerts").arg(QLocale().toString(alerts_.count));
  unread_.setTitle(count);
  unread_.menuAction()->setVisible(alerts_.count > 0);
  unread_.clear();
  for (const AlertRecord& alert : alerts_.newest) {
    unread_.addAction(controlText(nameLine(alert.appName)), this,
                      [this, trackId = alert.trackId] { Q_EMIT alertWanted(trackId); });
  }
}

void Tray::sayChecks() {
  check_->setEnabled(host_.canCheckPrices());
  checked_->setText(controlText(wordsOf(host_.checks(), clock_.now(), zone_).line));
}

void Tray::paintIcon() {
  if (icon_ == nullptr) return;
  const bool isUnread = alerts_.count > 0;
  icon_->setIcon(trayIcon(palette_[Token::text], palette_[Token::accent],
                          isUnread ? TrayNews::unread : TrayNews::none));
  icon_->setToolTip(isUnread ? QStringLiteral("Quillet, ") + unread_.title()
                             : QStringLiteral("Quillet"));
}

}  // namespace quillet
