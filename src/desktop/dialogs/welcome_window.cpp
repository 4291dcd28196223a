// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/welcome_window.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "base/enum_index.h"
#include "desktop/dialogs/notice_bar.h"
#include "desktop/dialogs/storefront_list.h"
#include "desktop/lists/text_label.h"
#include "desktop/look/button_look.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/page/link_button.h"
#include "desktop/page/page_text.h"
#include "store/records/platform.h"
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

constexpr std::array kPlatformNames{QT_TRANSLATE_NOOP("Welcome", "Mac"),
                                    QT_TRANSLATE_NOOP("Welcome", "iPhone"),
                                    QT_TRANSLATE_NOOP("Welcome", "iPad")};

Platform keptPlatform(const Settings& settings) {
  return valueOf(kPlatformWords, settings.text(kDefaultPlatform.key).value_or(""))
      .value_or(Platform::mac);
}

PageText* paragraph(const TextLook& look, const QString& text, QWidget* parent) {
  auto* made = new PageText(look, parent);
  made->show(text);
  return made;
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

WelcomeWindow::WelcomeWindow(const ViewWorld& world, QWidget* parent)
    : QDialog(parent),
      edit_(world.settings),
      storefronts_(new StorefrontList),
      platforms_(new QButtonGroup(this)),
      notice_(new NoticeBar) {
  setWindowTitle(tr("Welcome"));
  setMinimumSize(kSmallest);
  const double growth = std::min(lookOf(*this).growth(), kMostGrowth);
  resize(kUsual * growth);
  storefronts_->choose(world.storefront());
  auto* skip = new LinkButton(tr("Skip"), kControlType);
  auto* done = new QPushButton(tr("Done"));
  setButtonKind(*done, ButtonKind::primary);
  done->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->setContentsMargins(0, 24, 0, 0);
  buttons->addWidget(skip);
  buttons->addStretch(1);
  buttons->addWidget(done);
  auto* asked = new QVBoxLayout;
  asked->setContentsMargins(32, 32, 32, 24);
  asked->setSpacing(0);
  asked->addWidget(paragraph({.type = kSectionType.weighing(600), .lineHeight = 24},
                             tr("Which store do you buy from?"), this));
  asked->addSpacing(2);
  asked->addWidget(paragraph({.type = kBodyType, .ink = Token::secondary},
                             tr("Prices and availability depend on it."), this));
  asked->addSpacing(16);
  asked->addWidget(storefronts_, 1);
  asked->addSpacing(16);
  asked->addWidget(makePlatforms());
  asked->addLayout(buttons);
  auto* right = new QVBoxLayout;
  right->setSpacing(0);
  right->addWidget(notice_);
  right->addLayout(asked, 1);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->setSpacing(0);
  row->addWidget(makeSide());
  row->addLayout(right, 1);
  connect(skip, &QAbstractButton::clicked, this, &QWidget::close);
  connect(done, &QPushButton::clicked, this, &WelcomeWindow::keep);
  connect(&edit_, &SettingsEdit::failed, notice_, &NoticeBar::say);
  connect(&edit_, &SettingsEdit::succeeded, this, &QWidget::close);
  auto* closes = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_W), this);
  connect(closes, &QShortcut::activated, this, &QWidget::close);
  storefronts_->takeFocus();
}

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
  texts->addStretch(1);
  texts->addWidget(paragraph(
      {.type = kFactType, .ink = Token::tertiary, .lineHeight = 17},
      tr("Skip it if you like: it is found again under Help, and both choices in the settings."),
      side));
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(kInset - kAir, 32, kInset, 32);
  column->setSpacing(0);
  column->addWidget(icon);
  column->addLayout(texts, 1);
  return side;
}

QWidget* WelcomeWindow::makePlatforms() {
  auto* group = new QWidget;
  group->setAccessibleName(tr("Show me apps for"));
  auto* title = new TextLabel(kBodyType.weighing(600), Token::text);
  title->setText(tr("Show me apps for"));
  auto* choices = new QHBoxLayout;
  choices->setSpacing(24);
  for (std::size_t i = 0; i < kPlatformNames.size(); ++i) {
    auto* choice = new QRadioButton(QCoreApplication::translate("Welcome", kPlatformNames[i]));
    choice->setChecked(i == indexOf(keptPlatform(edit_.settings())));
    platforms_->addButton(choice, static_cast<int>(i));
    choices->addWidget(choice);
  }
  choices->addStretch(1);
  auto* column = new QVBoxLayout(group);
  column->setContentsMargins({});
  column->setSpacing(8);
  column->addWidget(title);
  column->addLayout(choices);
  return group;
}

void WelcomeWindow::keep() {
  const auto platform = static_cast<std::size_t>(platforms_->checkedId());
  edit_.write({{std::string(kStorefrontCountry.key), storefronts_->chosen()},
               {std::string(kDefaultPlatform.key), std::string(kPlatformWords[platform].text)}});
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
