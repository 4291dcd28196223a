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

Task<> showCount(DataStore* store, QPointer<QLabel> label) {
  const std::vector<WatchedApp> apps = co_await store->read(watchedApps);
  if (label.isNull()) co_return;
  label->setText(PlainWindow::tr("Watched apps: %1").arg(apps.size()));
}

}  // namespace

PlainWindow::PlainWindow(ServiceHost& host) : host_(host), check_(tr("Check Prices Now")) {
  setWindowTitle(tr("Quillet"));
  setMinimumSize(kSmallest);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(&watched_);
  layout->addWidget(&checked_);
  layout->addStretch();
  layout->addWidget(&check_, 0, Qt::AlignLeft);
  for (QLabel* label : {&watched_, &checked_}) {
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
  }
  connect(&check_, &QPushButton::clicked, this, [this] { host_.checkPrices(); });
  connect(&host_.monitor(), &WatchlistMonitor::stateChanged, this, &PlainWindow::showState);
  connect(&host_.store(), &DataStore::changed, this, [this](const LibraryChanges& changes) {
    if (!changes.watchedApps.empty()) countWatched();
  });
  showState();
  countWatched();
}

void PlainWindow::showState() {
  const WatchlistMonitor& monitor = host_.monitor();
  check_.setEnabled(!monitor.isRefreshing());
  if (monitor.isRefreshing()) {
    checked_.setText(tr("Checking prices …"));
  } else if (monitor.lastError()) {
    checked_.setText(QString::fromStdString(*monitor.lastError()));
  } else if (monitor.lastRefresh()) {
    checked_.setText(tr("Prices were checked at %1.").arg(timeText(*monitor.lastRefresh())));
  } else {
    checked_.setText(tr("Prices have not been checked yet."));
  }
}

void PlainWindow::countWatched() {
  detach(showCount(&host_.store(), QPointer<QLabel>(&watched_)), "The watchlist");
}

}  // namespace quillet
