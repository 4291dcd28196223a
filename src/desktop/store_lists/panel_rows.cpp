// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/panel_rows.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QStyleOptionButton>
#include <cmath>

#include "desktop/lists/chip.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/widgets.h"

namespace quillet {

namespace {

constexpr TypeStyle kChoiceType{12.5};
constexpr TypeStyle kCountType = kFactType.tabular();
constexpr int kChoiceHeight = 24;
constexpr int kTickHeight = 30;
constexpr int kMenuHeight = 28;
constexpr int kFieldHeight = 28;
constexpr int kFieldWidth = 104;
constexpr double kFieldText = 56;  // of its width
constexpr int kComplaintHeight = 20;
constexpr int kGap = 8;
constexpr int kChevron = 9;
constexpr int kChevronGap = 4;

/// A rectangle of a widget, mirrored where the widget is.
QRectF placed(const QWidget& widget, double left, double width) {
  const bool isMirrored = widget.layoutDirection() == Qt::RightToLeft;
  const double x = isMirrored ? widget.width() - left - width : left;
  return {x, 0, width, static_cast<double>(widget.height())};
}

TextAnchor startOf(const QWidget& widget) {
  return widget.layoutDirection() == Qt::RightToLeft ? TextAnchor::right : TextAnchor::left;
}
TextAnchor endOf(const QWidget& widget) {
  return widget.layoutDirection() == Qt::RightToLeft ? TextAnchor::left : TextAnchor::right;
}

QString countSentence(LiveCount count) {
  if (!count) return {};
  return *count == 1 ? TypedRow::tr("1 app") : TypedRow::tr("%1 apps").arg(liveCountText(count));
}

int indicatorWidth(const QWidget& widget) {
  return widget.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &widget);
}

/// Behind a radio button.
int textLeft(const QWidget& widget) { return indicatorWidth(widget) + kGap; }

constexpr bool isTick(const QRadioButton&) { return false; }
constexpr bool isTick(const QCheckBox&) { return true; }

}  // namespace

QString liveCountText(LiveCount count) {
  return count ? QLocale().toString(static_cast<qulonglong>(*count)) : QString();
}

template <typename Button>
void CountedRow<Button>::setChoice(const QString& text) {
  this->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  if (text_ == text) return;
  text_ = text;
  this->setText(controlText(text));
}

template <typename Button>
void CountedRow<Button>::setCount(LiveCount count) {
  if (count_ == count) return;
  count_ = count;
  this->setAccessibleDescription(countSentence(count));
  this->update();
}

template <typename Button>
QSize CountedRow<Button>::sizeHint() const {
  return {textLeft(*this), grownLine(*this, isTick(*this) ? kTickHeight : kChoiceHeight)};
}

template <typename Button>
bool CountedRow<Button>::hitButton(const QPoint& point) const {
  return this->rect().contains(point);
}

template <typename Button>
void CountedRow<Button>::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  QStyleOptionButton mark;
  this->initStyleOption(&mark);
  mark.rect = placed(*this, 0, indicatorWidth(*this)).toRect();
  this->style()->drawPrimitive(
      isTick(*this) ? QStyle::PE_IndicatorCheckBox : QStyle::PE_IndicatorRadioButton, &mark,
      &painter, this);
  const bool isChosen = this->isChecked();
  const QString number = liveCountText(count_);
  const TypeStyle numberType = isChosen ? kCountType.weighing(600) : kCountType;
  const double numberWidth = look.text.width(number, numberType);
  const int left = textLeft(*this);
  const double width = this->width() - left - (numberWidth > 0 ? numberWidth + kGap : 0);
  look.text.drawElided(painter, {placed(*this, left, width), startOf(*this)}, text_,
                       kChoiceType.weighing(isChosen || isTick(*this) ? 500 : 400),
                       look[Token::text]);
  look.text.draw(painter, {QRectF(this->rect()), endOf(*this)}, number, numberType,
                 look[isChosen ? Token::text : Token::tertiary]);
}

template class CountedRow<QRadioButton>;
template class CountedRow<QCheckBox>;

MenuRow::MenuRow(QWidget* parent) : QPushButton(parent) {
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void MenuRow::setChoice(const QString& title, const QString& value, bool isSet) {
  title_ = title;
  value_ = value;
  isSet_ = isSet;
  setAccessibleName(title + QStringLiteral(": ") + value);
  update();
}

void MenuRow::setLone(const QString& text) {
  title_.clear();
  value_ = text;
  setAccessibleName(text);
  update();
}

QSize MenuRow::sizeHint() const {
  return {textLeft(*this), grownLine(*this, title_.isEmpty() ? kChoiceHeight : kMenuHeight)};
}

void MenuRow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  const TypeStyle type = kFactType.weighing(isSet_ ? 500 : 400);
  const double titleWidth = look.text.draw(painter, {QRectF(rect()), startOf(*this)}, title_,
                                           kChoiceType.weighing(500), look[Token::text]);
  const double left = title_.isEmpty() ? textLeft(*this) : std::ceil(titleWidth) + 2 * kGap;
  const double room = width() - left - kChevron - kChevronGap;
  const double value = std::min(room, look.text.width(value_, type));
  // A lone one stands where texts begin, else it ends where counts do.
  const double at = title_.isEmpty() ? left : left + room - value;
  Token ink = isSet_ ? Token::accentText : Token::tertiary;
  if (!isSet_ && (underMouse() || isDown())) ink = Token::text;
  look.text.drawElided(painter, {placed(*this, at, value), startOf(*this)}, value_, type,
                       look[ink]);
  const QPointF corner(placed(*this, at + value + kChevronGap, kChevron).left(),
                       (height() - kChevron) / 2.0 + 1);
  look.icons.draw(painter, corner, QStringLiteral("chevron-down"), kChevron, look[ink]);
}

PanelLabel::PanelLabel(const TypeStyle& style, int height, Token color)
    : TextLabel(style, color), height_(height) {
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize PanelLabel::sizeHint() const {
  return {TextLabel::sizeHint().width(), grownLine(*this, height_)};
}

/// A small field with its unit at the end, whose border says that its text cannot be read.
class TypedRow::Field final : public QLineEdit {
 public:
  explicit Field(TypedRow& row) : QLineEdit(&row), row_(row) {}

  void setUnit(const QString& unit) {
    unit_ = unit;
    const int room = unit.isEmpty() ? 0 : static_cast<int>(std::ceil(unitWidth())) + kGap;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    setTextMargins(isMirrored ? room : 0, 0, isMirrored ? 0 : room, 0);
    update();
  }
  void setBad(bool isBad) {
    isBad_ = isBad;
    update();
  }

  [[nodiscard]] QSize sizeHint() const override {
    const double width = kFieldWidth + kFieldText * (lookOf(*this).growth() - 1);
    return {static_cast<int>(width), grownLine(*this, kFieldHeight)};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  bool event(QEvent* event) override {
    if (event->type() == QEvent::ShortcutOverride && isModified() &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
      event->accept();
      return true;
    }
    return QLineEdit::event(event);
  }

  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Escape) {
      Q_EMIT row_.left();
      return;
    }
    QLineEdit::keyPressEvent(event);
  }

  void paintEvent(QPaintEvent* event) override {
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    Look& look = lookOf(*this);
    look.text.draw(painter, {placed(*this, width() - kUnitInset - unitWidth(), unitWidth())}, unit_,
                   kCaptionType, look[Token::tertiary]);
    if (isBad_) paintBox(painter, rect(), kCorner, Qt::transparent, {look[Token::up], 2});
  }

 private:
  static constexpr double kUnitInset = 9;
  static constexpr double kCorner = 8;

  [[nodiscard]] double unitWidth() const { return lookOf(*this).text.width(unit_, kCaptionType); }

  TypedRow& row_;
  QString unit_;
  bool isBad_ = false;
};

TypedRow::TypedRow(QWidget* parent)
    : QWidget(parent),
      title_(new PanelLabel(kChoiceType, kFieldHeight)),
      field_(new Field(*this)),
      complaint_(new PanelLabel(kCaptionType, kComplaintHeight, Token::up)) {
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(textLeft(*this), 2, 0, 2);
  layout->setHorizontalSpacing(kGap);
  layout->setVerticalSpacing(0);
  layout->addWidget(title_, 0, 0);
  layout->addWidget(field_, 0, 1);
  layout->addWidget(complaint_, 1, 0, 1, 2);
  layout->setColumnStretch(0, 1);
  complaint_->hide();
  connect(field_, &QLineEdit::editingFinished, this, [this] {
    if (isEdited()) Q_EMIT entered(field_->text());
  });
  connect(field_, &QLineEdit::textEdited, this, [this] { complain({}); });
}

void TypedRow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) layout()->setContentsMargins(textLeft(*this), 2, 0, 2);
}

void TypedRow::setNames(const EntryNames& names) {
  title_->setText(names.title);
  field_->setAccessibleName(names.name);
  field_->setPlaceholderText(names.prompt);
  field_->setUnit(names.unit);
}

void TypedRow::setText(const QString& text) {
  field_->setText(text);
  field_->setModified(false);
  complain({});
}

bool TypedRow::isEdited() const { return field_->isModified(); }

void TypedRow::takeFocus() { field_->setFocus(Qt::OtherFocusReason); }

void TypedRow::complain(const QString& why) {
  complaint_->setText(why);
  complaint_->setVisible(!why.isEmpty());
  field_->setAccessibleDescription(why);
  field_->setBad(!why.isEmpty());
}

}  // namespace quillet
