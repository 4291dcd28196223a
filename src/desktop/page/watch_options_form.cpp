// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/watch_options_form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "analysis/recorded_price.h"
#include "desktop/lists/text_label.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/models/price_entry.h"
#include "desktop/page/link_button.h"
#include "desktop/page/page_price.h"

namespace quillet {

namespace {

constexpr int kAlert = 30;
constexpr int kFieldWidth = 112;
constexpr int kKept = -1;  // the data of an entry that leaves things as they are

/// A hairline with air around it.
class FormLine : public QWidget {
 public:
  explicit FormLine(QWidget* parent) : QWidget(parent) { setFixedHeight(1); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    PixelGrid(painter).horizontal(0, width(), 0, lookOf(*this)[Token::line]);
  }
};

/// What they have in common; `otherwise` where they differ.
template <typename Value, typename Read>
Value common(const std::vector<WatchedApp>& apps, Read read, Value otherwise) {
  const Value first = read(apps.front());
  const bool isSame =
      std::ranges::all_of(apps, [&](const WatchedApp& app) { return read(app) == first; });
  return isSame ? first : otherwise;
}

}  // namespace

WatchOptionsForm::WatchOptionsForm(const PageWorld& world, std::vector<WatchedApp> apps,
                                   std::optional<double> lowest, QWidget* parent)
    : QWidget(parent), world_(world), apps_(std::move(apps)), currency_(commonCurrency()) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->setSpacing(0);
  addAlerts();
  column->addSpacing(8);
  column->addWidget(new FormLine(this));
  column->addSpacing(12);
  addTarget(lowest);
  column->addSpacing(12);
  column->addWidget(new FormLine(this));
  column->addSpacing(12);
  addMute();
  judge();
}

std::optional<std::string> WatchOptionsForm::commonCurrency() const {
  const bool isSame = std::ranges::all_of(apps_, [&](const WatchedApp& app) {
    return app.currency.value_or("") == apps_.front().currency.value_or("");
  });
  return isSame ? std::optional(apps_.front().currency.value_or("")) : std::nullopt;
}

QString WatchOptionsForm::priceOf(double amount) const {
  return QString::fromStdString(world_.formats->currency(amount, currency_.value_or("")));
}

void WatchOptionsForm::addAlerts() {
  auto* column = static_cast<QVBoxLayout*>(layout());
  auto* title = new TextLabel(kSmallControlType.weighing(600), Token::text);
  title->setText(tr("Tell me about"));
  column->addWidget(title);
  column->addSpacing(8);
  for (std::size_t i = 0; i < kWatchAlerts.size(); ++i) {
    const WatchAlert& alert = kWatchAlerts.at(i);
    auto* box = new QCheckBox(watchWord(alert.text), this);
    box->setMinimumHeight(kAlert);
    before_.at(i) = common<Qt::CheckState>(
        apps_, [&](const WatchedApp& app) { return app.*alert.isOn ? Qt::Checked : Qt::Unchecked; },
        Qt::PartiallyChecked);
    box->setTristate(before_.at(i) == Qt::PartiallyChecked);
    box->setCheckState(before_.at(i));
    connect(box, &QCheckBox::stateChanged, this, &WatchOptionsForm::changed);
    column->addWidget(box);
    alerts_.at(i) = box;
  }
  auto* remark = new TextLabel(kCaptionType, Token::secondary);
  remark->setText(tr("Recorded from the next check on"));
  alerts_.back()->setAccessibleDescription(remark->text());
  auto* row = new QHBoxLayout;
  // Behind the box.
  row->setContentsMargins(style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                              style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing),
                          0, 0, 0);
  row->addWidget(remark);
  column->addLayout(row);
}

void WatchOptionsForm::addTarget(std::optional<double> lowest) {
  auto* column = static_cast<QVBoxLayout*>(layout());
  target_ = new QLineEdit(this);
  target_->setFixedWidth(kFieldWidth);
  target_->setAccessibleName(tr("Target price"));
  target_->setEnabled(currency_.has_value());
  const auto target = common<std::optional<double>>(apps_, knownTargetPrice, -1.0);
  const bool isMixed = target && *target < 0;
  target_->setPlaceholderText(isMixed ? tr("Different") : tr("None"));
  if (target && !isMixed) targetBefore_ = priceOf(*target);
  target_->setText(targetBefore_);
  auto* label = new QLabel(tr("Target price"), this);
  label->setFont(lookOf(*this).text.font(kControlType.weighing(600)));
  label->setBuddy(target_);
  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addStretch();
  row->addWidget(target_);
  column->addLayout(row);
  remark_ = new TextLabel(kCaptionType, Token::secondary, TextAnchor::right);
  column->addSpacing(4);
  column->addWidget(remark_);
  connect(target_, &QLineEdit::textChanged, this, &WatchOptionsForm::judge);
  connect(target_, &QLineEdit::returnPressed, this, &WatchOptionsForm::submitted);
  if (!lowest) return;
  auto* use = new LinkButton({}, kSmallControlType, {}, this);
  use->setPlainText(tr("Use lowest recorded %1").arg(priceOf(*lowest)));
  connect(use, &QAbstractButton::clicked, this,
          [this, price = *lowest] { target_->setText(priceOf(price)); });
  column->addSpacing(4);
  column->addWidget(use, 0, Qt::AlignRight);
}

void WatchOptionsForm::addMute() {
  const Instant now = world_.view.clock.now();
  mute_ = new QComboBox(this);
  const bool isMixed = std::ranges::any_of(apps_, [&](const WatchedApp& app) {
    return isMuted(app, now) != isMuted(apps_.front(), now) ||
           (isMuted(app, now) && app.mutedUntil != apps_.front().mutedUntil);
  });
  const WatchedApp& first = apps_.front();
  if (isMixed) {
    mute_->addItem(tr("Different"), kKept);
  } else if (isMuted(first, now)) {
    mute_->addItem(muteText(first.mutedUntil, now, world_.view.zone), kKept);
  }
  const bool isOff = !isMixed && !isMuted(first, now);
  mute_->addItem(muteText({}, now, world_.view.zone),
                 isOff ? kKept : static_cast<int>(kMuteChoices.size()));
  for (std::size_t i = 0; i < kMuteChoices.size(); ++i) {
    const bool isThis = !isMixed && kMuteChoices.at(i).span == MuteSpan::untilTurnedOn &&
                        first.mutedUntil && *first.mutedUntil >= muteEnd();
    if (!isThis) mute_->addItem(watchWord(kMuteChoices.at(i).text), static_cast<int>(i));
  }
  auto* label = new QLabel(tr("Mute alerts"), this);
  label->setFont(lookOf(*this).text.font(kControlType.weighing(600)));
  label->setBuddy(mute_);
  mute_->setAccessibleName(label->text());
  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addStretch();
  row->addWidget(mute_);
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
  connect(mute_, &QComboBox::currentIndexChanged, this, &WatchOptionsForm::changed);
}

QString WatchOptionsForm::remark() const {
  if (!currency_) return tr("These apps are sold in several currencies");
  const PriceEntry entry = readPrice(target_->text(), QLocale().decimalPoint().front());
  if (std::holds_alternative<UnreadablePrice>(entry)) return tr("Write a price, as 2.99");
  if (std::holds_alternative<NegativePrice>(entry)) return tr("No price is below 0");
  const auto* price = std::get_if<double>(&entry);
  if (price == nullptr || apps_.size() > 1) return {};
  return reachedText(apps_.front(), *price, *world_.formats);
}

void WatchOptionsForm::judge() {
  const QString said = remark();
  remark_->setText(said);
  remark_->setVisible(!said.isEmpty());
  target_->setAccessibleDescription(said);
  Q_EMIT changed();
}

bool WatchOptionsForm::isValid() const {
  const PriceEntry entry = readPrice(target_->text(), QLocale().decimalPoint().front());
  return std::holds_alternative<NoPrice>(entry) || std::holds_alternative<double>(entry);
}

WatchChange WatchOptionsForm::change() const {
  WatchChange change;
  for (std::size_t i = 0; i < kWatchAlerts.size(); ++i) {
    const Qt::CheckState state = alerts_.at(i)->checkState();
    if (state != before_.at(i) && state != Qt::PartiallyChecked)
      change.*(kWatchAlerts.at(i).change) = state == Qt::Checked;
  }
  if (isValid() && target_->text() != targetBefore_) {
    const PriceEntry entry = readPrice(target_->text(), QLocale().decimalPoint().front());
    const auto* price = std::get_if<double>(&entry);
    change.target = WatchChange::Target{price == nullptr ? std::nullopt : std::optional(*price)};
  }
  const int mute = mute_->currentData().toInt();
  if (mute == static_cast<int>(kMuteChoices.size())) {
    change.mute = WatchChange::Mute{};
  } else if (mute != kKept) {
    const MuteSpan span = kMuteChoices.at(static_cast<std::size_t>(mute)).span;
    change.mute = WatchChange::Mute{mutedUntil(span, world_.view.clock.now())};
  }
  return change;
}

void WatchOptionsForm::goToAlerts() { alerts_.front()->setFocus(Qt::PopupFocusReason); }

void WatchOptionsForm::goToTarget() {
  target_->setFocus(Qt::PopupFocusReason);
  target_->selectAll();
}

}  // namespace quillet
