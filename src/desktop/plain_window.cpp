// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/plain_window.h"

#include <QDateTime>
#include <QLocale>
#include <QPointer>
#include <QVBoxLayout>

#include "library/watched_apps.h"

namespace quillet {

namespace {

constexpr QSize kSmallest(420, 180);

QString timeText(Instant instant) {
  const auto moment = QDateTime::fromMSecsSinceEpoch(instant.time_since_epoch().count());
  return QLocale().toString(moment, QLocale::ShortFormat);
}

QString passText(const WatchlistMonitor& monitor) {
  if (const auto& progress = monitor.progress()) {
    return PlainWindow::tr("Checking %1 of %2 …")
        .arg(QLocale().toString(static_cast<qulonglong>(progress->checked)),
             QLocale().toString(static_cast<qulonglong>(progress->all)));
  }
  if (monitor.lastError()) return QString::fromStdString(*monitor.lastError());
  if (monitor.lastEnd() == PassEnd::rateLimited)
    return PlainWindow::tr("Apple is limiting requests.");
  if (monitor.lastRefresh())
    return PlainWindow::tr("Prices were checked at %1.").arg(timeText(*monitor.lastRefresh()));
  return PlainWindow::tr("Prices have not been checked yet.");
}

QString notificationsText(const Notifier& notifier) {
  switch (notifier.authorizationStatus()) {
    case AuthorizationStatus::notDetermined:
      return PlainWindow::tr("Notifications haven't been enabled yet.");
    case AuthorizationStatus::denied:
      return PlainWindow::tr(
          "Notifications are turned off. Enable them in System Settings › Notifications to receive "
          "price alerts.");
    case AuthorizationStatus::unavailable:
      return PlainWindow::tr("This desktop has no notification service; alerts stay in the list.");
    case AuthorizationStatus::authorized: break;
  }
  return {};
}

Task<> showCount(DataStore* store, QPointer<QLabel> label) {
  const std::vector<WatchedApp> apps = co_await store->read(watchedApps);
  if (label.isNull()) co_return;
  label->setText(PlainWindow::tr("Watched apps: %1").arg(apps.size()));
}

}  // namespace

PlainWindow::PlainWindow()
    : watched_(tr("Opening the library…")),
      check_(tr("Check Prices Now")),
      notify_(tr("Enable Notifications")) {
  setWindowTitle(tr("Quillet"));
  setMinimumSize(kSmallest);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(&watched_);
  layout->addWidget(&checked_);
  layout->addWidget(&notifications_);
  layout->addStretch();
  layout->addWidget(&notify_, 0, Qt::AlignLeft);
  layout->addWidget(&check_, 0, Qt::AlignLeft);
  for (QLabel* label : {&watched_, &checked_, &notifications_}) {
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
  }
  check_.setEnabled(false);
  notify_.hide();
}

void PlainWindow::useHost(ServiceHost& host) {
  host_ = &host;
  connect(&check_, &QPushButton::clicked, &host, &ServiceHost::checkPrices);
  connect(&notify_, &QPushButton::clicked, &host, &ServiceHost::enableNotifications);
  connect(&host.notifier(), &Notifier::authorizationChanged, this, &PlainWindow::showNotifications);
  connect(&host.monitor(), &WatchlistMonitor::stateChanged, this, &PlainWindow::showState);
  connect(&host.store(), &DataStore::changed, this, [this](const LibraryChanges& changes) {
    if (!changes.watchedApps.empty()) countWatched();
  });
  showState();
  showNotifications();
  countWatched();
}

void PlainWindow::showState() {
  const WatchlistMonitor& monitor = host_->monitor();
  check_.setEnabled(!monitor.isRefreshing());
  QString text = passText(monitor);
  if (monitor.nextCheck() && !monitor.isRefreshing())
    text += QLatin1Char(' ') + tr("Next check at %1.").arg(timeText(*monitor.nextCheck()));
  checked_.setText(text);
}

void PlainWindow::showNotifications() {
  const Notifier& notifier = host_->notifier();
  const auto status = notifier.authorizationStatus();
  QString text = notificationsText(notifier);
  if (const auto& error = notifier.lastPermissionError())
    text = tr("Notifications: %1.").arg(QString::fromStdString(*error));
  notifications_.setText(text);
  notifications_.setHidden(text.isEmpty());
  notify_.setVisible(status == AuthorizationStatus::notDetermined ||
                     status == AuthorizationStatus::denied);
}

void PlainWindow::countWatched() {
  detach(showCount(&host_->store(), QPointer<QLabel>(&watched_)), "The watchlist");
}

}  // namespace quillet
