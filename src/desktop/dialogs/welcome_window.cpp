// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/welcome_window.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <utility>

#include "desktop/dialogs/notice_bar.h"
#include "desktop/dialogs/step_list.h"
#include "desktop/dialogs/storefront_list.h"
#include "desktop/look/dialog_button.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/page/link_button.h"
#include "desktop/page/page_text.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

using namespace Qt::StringLiterals;

constexpr QSize kUsual(760, 544);
constexpr QSize kSmallest(620, 460);
constexpr double kMostGrowth = 1.4;  // of the window along with its texts
constexpr int kSide = 232;
constexpr int kIcon = 72;
constexpr TypeStyle kWelcomeType{20, kBold, -0.1};

// Stored; never change.
constexpr auto kWelcomed = "welcomed"_L1;

PageText* paragraph(const TextLook& look, const QString& text, QWidget* parent) {
  auto* made = new PageText(look, parent);
  made->show(text);
  return made;
}

QStringList titlesOf(const std::vector<WelcomeStep>& steps) {
  QStringList titles;
  for (const WelcomeStep& step : steps) titles.append(step.title);
  return titles;
}

/// What says where one is, left of what is asked.
class Side : public QWidget {
 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    Look& look = lookOf(*this);
    painter.fillRect(rect(), look[Token::raised]);
    const double edge = layoutDirection() == Qt::RightToLeft ? 0 : width() - 1;
    PixelGrid(painter).vertical(edge, 0, height(), look[Token::line]);
  }
};

}  // namespace

WelcomeWindow::WelcomeWindow(const ViewWorld& world, const SystemChoices& system, QWidget* parent)
    : QDialog(parent),
      world_(world),
      system_(system),
      edit_(world.settings),
      steps_(makeSteps()),
      list_(new StepList(titlesOf(steps_))),
      stack_(new QStackedWidget),
      notice_(new NoticeBar) {
  setWindowTitle(tr("Welcome"));
  setMinimumSize(kSmallest);
  resize(kUsual * std::min(lookOf(*this).growth(), kMostGrowth));
  for (const WelcomeStep& step : steps_) stack_->addWidget(step.view);
  auto* asked = new QVBoxLayout;
  asked->setContentsMargins(32, 32, 32, 24);
  asked->setSpacing(0);
  asked->addWidget(stack_, 1);
  asked->addLayout(makeButtons());
  auto* right = new QVBoxLayout;
  right->setSpacing(0);
  right->addWidget(notice_);
  right->addLayout(asked, 1);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->setSpacing(0);
  row->addWidget(makeSide());
  row->addLayout(right, 1);
  // As Enter does in the other steps.
  if (const auto* storefronts = stack_->findChild<StorefrontList*>())
    connect(storefronts, &StorefrontList::entered, this, &WelcomeWindow::keep);
  connect(&edit_, &SettingsEdit::failed, notice_, &NoticeBar::say);
  connect(&edit_, &SettingsEdit::succeeded, this, &WelcomeWindow::goOn);
  auto* closes = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_W), this);
  connect(closes, &QShortcut::activated, this, &QWidget::close);
  showStep(0);
}

std::vector<WelcomeStep> WelcomeWindow::makeSteps() {
  const WelcomeWorld world{world_, system_, edit_};
  std::vector<WelcomeStep> steps{makeStoreStep(world)};
  if (system_.notifications != nullptr) steps.push_back(makeNotificationsStep(world));
  steps.push_back(makeMyAppsStep([this](AppsWish wish) { wish_ = wish; }));
  steps.push_back(makeBackgroundStep(world));
  return steps;
}

QLayout* WelcomeWindow::makeButtons() {
  auto* skip = new LinkButton(tr("Skip"), kControlType);
  back_ = new DialogButton(tr("Back"));
  next_ = new DialogButton(tr("Continue"), ButtonKind::primary);
  next_->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->setContentsMargins(0, 24, 0, 0);
  buttons->setSpacing(8);
  buttons->addWidget(skip);
  buttons->addStretch(1);
  buttons->addWidget(back_);
  buttons->addWidget(next_);
  connect(skip, &QAbstractButton::clicked, this, &WelcomeWindow::goOn);
  connect(back_, &QPushButton::clicked, this, [this] { showStep(at_ - 1); });
  connect(next_, &QPushButton::clicked, this, &WelcomeWindow::keep);
  return buttons;
}

bool WelcomeWindow::isAtLast() const { return at_ + 1 == steps_.size(); }

void WelcomeWindow::showStep(std::size_t step) {
  at_ = step;
  notice_->say({});
  stack_->setCurrentIndex(static_cast<int>(step));
  list_->setCurrent(static_cast<int>(step));
  back_->setEnabled(step > 0);
  next_->setText(isAtLast() ? tr("Done") : tr("Continue"));
  steps_[step].takeFocus();
}

/// To the next step; from the last one the window goes.
void WelcomeWindow::goOn() {
  if (isAtLast()) {
    close();
  } else {
    showStep(at_ + 1);
  }
}

void WelcomeWindow::keep() { edit_.attempt(steps_[at_].keep); }

QWidget* WelcomeWindow::makeSide() {
  constexpr int kInset = 24;
  constexpr int kAir = 5;  // around the drawing, within its picture
  auto* side = new Side;
  side->setFixedWidth(static_cast<int>(kSide * std::min(lookOf(*this).growth(), kMostGrowth)));
  auto* icon = new QLabel;
  icon->setPixmap(QApplication::windowIcon().pixmap(QSize(kIcon, kIcon), devicePixelRatioF()));
  auto* texts = new QVBoxLayout;
  texts->setContentsMargins(kAir, 12, 0, 0);
  texts->setSpacing(4);
  texts->addWidget(
      paragraph({.type = kWelcomeType, .lineHeight = 26}, tr("Welcome to Quillet"), side));
  texts->addWidget(paragraph({.type = kBodyType, .ink = Token::secondary, .lineHeight = 19},
                             tr("Prices, upkeep and costs of the apps you care about."), side));
  texts->addSpacing(24);
  texts->addWidget(list_);
  texts->addStretch(1);
  texts->addWidget(paragraph({.type = kFactType, .ink = Token::tertiary, .lineHeight = 17},
                             tr("Every step can be skipped and found again under Help."), side));
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(kInset - kAir, 32, kInset, 32);
  column->setSpacing(0);
  column->addWidget(icon);
  column->addLayout(texts, 1);
  return side;
}

void WelcomeWindow::closeEvent(QCloseEvent* event) {
  QDialog::closeEvent(event);
  const AppsWish wish = std::exchange(wish_, AppsWish::later);
  if (wish == AppsWish::scan) Q_EMIT scanWanted();
  if (wish == AppsWish::byHand) Q_EMIT appsWanted();
}

void WelcomeWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), lookOf(*this)[Token::base]);
}

bool isNewHere(const Settings& settings, const StateFile& remembered) {
  return remembered.isEmpty() && !settings.text(kStorefrontCountry.key);
}

void rememberWelcome(StateFile& state) { state.setValue(kWelcomed, true); }

}  // namespace quillet
