// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QAbstractButton>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/look/look.h"
#include "desktop/models/store_question.h"
#include "desktop/page/artwork_label.h"
#include "desktop/page/block_table.h"
#include "desktop/page/bundle_rows.h"
#include "desktop/page/state_line.h"
#include "queries/app_bundles.h"

namespace quillet {

namespace {

constexpr int kIcon = 32;
constexpr int kIconGap = 4;
constexpr int kGap = 12;
constexpr int kRow = 36;
constexpr int kBetween = 8;
constexpr double kNameLine = 18;
constexpr double kDetailLine = 16;
constexpr TypeStyle kPriceType = kControlType.tabular();

QString spoken(const BundleRow& row) {
  QStringList texts{row.name, row.details, row.price};
  texts.removeAll(QString());
  return texts.join(QStringLiteral(", "));
}

/// What a bundle's row looks like, whether it leads anywhere or not.
template <typename Base>
class BundleView : public Base {
 public:
  BundleView(const BundleRow& row, ImageStore& images, QWidget* parent) : Base(parent), row_(row) {
    int left = 0;
    for (const BundleRow::Icon& icon : row_.icons) {
      auto* label = new ArtworkLabel(images, kIcon, this);
      label->setAttribute(Qt::WA_TransparentForMouseEvents);
      label->move(left, (this->sizeHint().height() - kIcon) / 2);
      label->show(icon.address, icon.name);
      left += kIcon + kIconGap;
    }
    textLeft_ = left == 0 ? 0 : left - kIconGap + kGap;
    this->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  }

  [[nodiscard]] QSize sizeHint() const override {
    return {480, static_cast<int>(std::ceil(kRow * lookOf(*this).growth()))};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, this->sizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    Look& look = lookOf(*this);
    QPainter painter(this);
    if (isHovered()) painter.fillRect(this->rect(), look[Token::hover]);
    const double price = look.text.draw(painter, {this->rect(), TextAnchor::right}, row_.price,
                                        kPriceType, look[Token::text]);
    const double name = kNameLine * look.growth();
    const double detail = kDetailLine * look.growth();
    const double width = std::max(0.0, this->width() - textLeft_ - price - kGap);
    const double top = std::floor((this->height() - name - detail) / 2);
    look.text.drawElided(painter, {QRectF(textLeft_, top, width, name)}, row_.name, kControlType,
                         look[Token::text]);
    look.text.drawElided(painter, {QRectF(textLeft_, top + name, width, detail)}, row_.details,
                         kFactType.tabular(), look[Token::secondary]);
  }

 private:
  [[nodiscard]] bool isHovered() const {
    return std::is_base_of_v<QAbstractButton, Base> && this->underMouse();
  }

  BundleRow row_;
  int textLeft_ = 0;
};

/// The bundles that the store sells the app in.
class BundlesBlock : public Block {
 public:
  BundlesBlock(const QString& title, const PageWorld& world)
      : Block(title),
        world_(world),
        question_(world.view.store, world.view.clock),
        state_(new StateLine(world.view.clock, this)) {
    content().setSpacing(0);
    content().addWidget(state_);
    connect(state_, &StateLine::acted, this, [this](StripAction action) {
      action == StripAction::stop ? question_.stop() : question_.tryAgain();
    });
    connect(&question_, &StoreQuestion::stateChanged, this, [this] { setVisible(showAnswer()); });
  }

  bool fill(const PageFacts& known) override {
    if (known.app != app_) {
      app_ = known.app;
      bundles_.clear();
      question_.forget();
    }
    return showAnswer();
  }

  void approach(Freshness freshness) override {
    question_.ask(
        [app = app_, freshness](QueryServices services, QueryCall call) {
          return readAppBundles(app.trackId, app.country, freshness, services, std::move(call));
        },
        [this](std::vector<AppBundleInfo> bundles) { bundles_ = std::move(bundles); });
  }

 private:
  bool showAnswer() {
    const bool tells = state_->show(question_.state());
    build(bundleRows(bundles_, *world_.formats));
    return tells || !shown_.empty();
  }

  void build(std::vector<BundleRow> rows) {
    if (rows == shown_) return;
    shown_ = std::move(rows);
    for (QWidget* view : std::exchange(views_, {})) delete view;
    for (const BundleRow& row : shown_) {
      views_.push_back(makeView(row));
      views_.back()->setContentsMargins(0, 0, 0, kBetween);
      content().addWidget(views_.back());
    }
  }

  QWidget* makeView(const BundleRow& row) {
    if (row.link.empty()) {
      auto* label = new BundleView<QLabel>(row, world_.view.images, this);
      label->setTextFormat(Qt::PlainText);
      label->setText(spoken(row));
      return label;
    }
    auto* button = new BundleView<QAbstractButton>(row, world_.view.images, this);
    button->setAccessibleName(spoken(row));
    button->setToolTip(tr("Open the bundle's page in the App Store"));
    button->setCursor(Qt::PointingHandCursor);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setAttribute(Qt::WA_Hover);
    connect(button, &QAbstractButton::clicked, this,
            [this, link = row.link] { world_.view.prompts.openLink(link); });
    return button;
  }

  PageWorld world_;
  AppKey app_;
  std::vector<AppBundleInfo> bundles_;
  StoreQuestion question_;
  StateLine* state_;
  std::vector<BundleRow> shown_;
  std::vector<QWidget*> views_;
};

}  // namespace

Block* makeBundlesBlock(const QString& title, const PageWorld& world) {
  return new BundlesBlock(title, world);
}

}  // namespace quillet
