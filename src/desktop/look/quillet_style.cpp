// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/quillet_style.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QFocusFrame>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QSlider>
#include <QStyleHintReturnMask>
#include <QTabBar>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <map>

#include "desktop/look/focus_ring.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/style_parts.h"

namespace quillet {

namespace {

constexpr double kMenuCorner = 8;
constexpr double kTooltipCorner = 6;

struct StandardIcon {
  QStyle::StandardPixmap which;
  const char* name;  ///< of icon_list.txt
};

constexpr std::array kStandardIcons{
    StandardIcon{QStyle::SP_ToolBarHorizontalExtensionButton, "chevron-down"},
    StandardIcon{QStyle::SP_ArrowBack, "chevron-left"},
    StandardIcon{QStyle::SP_ArrowForward, "chevron-right"},
    StandardIcon{QStyle::SP_FileDialogToParent, "arrow-up"},
    StandardIcon{QStyle::SP_FileDialogNewFolder, "folder-plus"},
    StandardIcon{QStyle::SP_FileDialogListView, "list"},
    StandardIcon{QStyle::SP_FileDialogDetailedView, "table"},
    StandardIcon{QStyle::SP_ComputerIcon, "display"},
    StandardIcon{QStyle::SP_DesktopIcon, "display"},
    StandardIcon{QStyle::SP_DriveHDIcon, "hdd"},
    StandardIcon{QStyle::SP_DirHomeIcon, "house"},
    StandardIcon{QStyle::SP_DirIcon, "folder2"},
    StandardIcon{QStyle::SP_DirLinkIcon, "folder2"},
    StandardIcon{QStyle::SP_FileIcon, "file-earmark"},
    StandardIcon{QStyle::SP_FileLinkIcon, "file-earmark"},
};

/// Puts a painter back as it was: parts change pens, brushes and hints as they like.
class SavedPainter {
 public:
  explicit SavedPainter(QPainter* painter) : painter_(painter) { painter_->save(); }
  ~SavedPainter() { painter_->restore(); }
  SavedPainter(const SavedPainter&) = delete;
  SavedPainter& operator=(const SavedPainter&) = delete;

 private:
  QPainter* painter_;
};

template <typename Option>
const Option& as(const QStyleOption* option) {
  return *static_cast<const Option*>(option);
}

/// A spin box and an editable combo box draw the panel of the field inside them.
bool isInnerField(const QWidget* widget) {
  const QWidget* parent = widget == nullptr ? nullptr : widget->parentWidget();
  return qobject_cast<const QAbstractSpinBox*>(parent) != nullptr ||
         qobject_cast<const QComboBox*>(parent) != nullptr;
}

QRegion roundedRegion(const QRect& rect, double radius) {
  QPainterPath path;
  path.addRoundedRect(rect, radius, radius);
  return QRegion(path.toFillPolygon().toPolygon());
}

bool isField(const QWidget* widget) {
  return qobject_cast<const QLineEdit*>(widget) != nullptr ||
         qobject_cast<const QAbstractSpinBox*>(widget) != nullptr;
}

/// `known` is what a box's font needs for them; they are painted stronger.
double choicesWidth(Look& look, double known, const QWidget* widget) {
  const auto* box = qobject_cast<const QComboBox*>(widget);
  if (box == nullptr || box->sizeAdjustPolicy() == QComboBox::AdjustToMinimumContentsLengthWithIcon)
    return known;
  for (int i = 0; i < box->count(); ++i)
    known = std::max(known, look.text.width(box->itemText(i), kControlType));
  return known;
}

bool isIndicator(QStyle::PixelMetric metric) {
  return metric == QStyle::PM_IndicatorWidth || metric == QStyle::PM_IndicatorHeight ||
         metric == QStyle::PM_ExclusiveIndicatorWidth ||
         metric == QStyle::PM_ExclusiveIndicatorHeight;
}

void paintChevron(QPainter& painter, Look& look, const QStyleOption& option, const QString& name) {
  constexpr double kSize = 10;
  const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
  look.icons.draw(painter, QRectF(option.rect).center() - QPointF(kSize, kSize) / 2, name, kSize,
                  look[isEnabled ? Token::tertiary : Token::disabled]);
}

QRect scrollBarPart(const QStyleOptionSlider& option, QStyle::SubControl part, int smallest) {
  const QRect& rect = option.rect;
  const bool isVertical = option.orientation == Qt::Vertical;
  const int length = isVertical ? rect.height() : rect.width();
  const int range = option.maximum - option.minimum;
  int size = length;
  if (range > 0) {
    const qint64 shown = static_cast<qint64>(length) * option.pageStep / (range + option.pageStep);
    size = std::min(length, std::max(smallest, static_cast<int>(shown)));
  }
  const int start = QStyle::sliderPositionFromValue(
      option.minimum, option.maximum, option.sliderPosition, length - size, option.upsideDown);
  const auto piece = [&](int from, int extent) {
    return isVertical ? QRect(rect.x(), rect.y() + from, rect.width(), extent)
                      : QRect(rect.x() + from, rect.y(), extent, rect.height());
  };
  switch (part) {
    case QStyle::SC_ScrollBarSlider: return piece(start, size);
    case QStyle::SC_ScrollBarSubPage: return piece(0, start);
    case QStyle::SC_ScrollBarAddPage: return piece(start + size, length - start - size);
    case QStyle::SC_ScrollBarGroove: return rect;
    default: return {};  // there are no buttons at the ends
  }
}

QRect comboBoxPart(const QRect& rect, QStyle::SubControl part) {
  constexpr int kArrow = 26;
  constexpr int kInset = 10;
  switch (part) {
    case QStyle::SC_ComboBoxArrow:
      return {rect.right() + 1 - kArrow, rect.y(), kArrow, rect.height()};
    case QStyle::SC_ComboBoxEditField: return rect.adjusted(kInset, 1, -kArrow, -1);
    default: return rect;
  }
}

QRect spinBoxPart(const QRect& rect, QStyle::SubControl part) {
  constexpr int kButtons = 24;
  const int left = rect.right() - kButtons;
  const int half = rect.height() / 2;
  switch (part) {
    case QStyle::SC_SpinBoxUp: return {left, rect.y() + 1, kButtons, half - 1};
    case QStyle::SC_SpinBoxDown: return {left, rect.y() + half, kButtons, half - 1};
    case QStyle::SC_SpinBoxEditField: return rect.adjusted(8, 1, -kButtons - 2, -1);
    default: return rect;
  }
}

}  // namespace

Look& lookOf(const QWidget& widget) {
  auto* style = qobject_cast<QuilletStyle*>(widget.style());
  Q_ASSERT(style != nullptr);
  return style->look();
}

QuilletStyle::QuilletStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void QuilletStyle::setPalette(const Palette& palette) {
  look_.palette = palette;
  const QPalette all = widgetPalette(palette);
  QApplication::setPalette(all);
  // What a combo box opens fills its entries with the ground of menus.
  QPalette menus = all;
  menus.setBrush(QPalette::Window, all.button());
  QApplication::setPalette(menus, "QMenu");
  QToolTip::setPalette(all);
}

void QuilletStyle::setTextScale(double scale) {
  look_.text.setScale(scale);
  // Sent to every widget, also to those that draw their texts themselves: they ask for room again.
  QApplication::setFont(look_.text.font(kBodyType));
  QToolTip::setFont(look_.text.font(kFactType));
}

void QuilletStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
  const SavedPainter saved(painter);
  switch (element) {
    case PE_PanelButtonCommand:
      parts::paintButtonPanel(*painter, look_, as<QStyleOptionButton>(option),
                              buttonKindOf(widget));
      return;
    case PE_IndicatorCheckBox: parts::paintCheckBox(*painter, look_, *option); return;
    case PE_IndicatorRadioButton: parts::paintRadioButton(*painter, look_, *option); return;
    case PE_PanelLineEdit:
    case PE_FrameLineEdit:
      if (!isInnerField(widget)) {
        parts::paintField(*painter, look_, *option,
                          isSearchField(widget) ? Token::edge : Token::control);
      }
      return;
    case PE_PanelMenu:
      paintBox(*painter, option->rect, kMenuCorner,
               look_[look_.palette.scheme() == Scheme::dark ? Token::raised : Token::base],
               {look_[Token::edge]});
      return;
    case PE_PanelTipLabel:
      paintBox(*painter, option->rect, kTooltipCorner, look_[Token::tooltip]);
      return;
    case PE_FrameTabWidget:
    case PE_FrameTabBarBase:
      PixelGrid(*painter).horizontal(option->rect.left(), option->rect.right() + 1,
                                     option->rect.bottom(), look_[Token::line]);
      return;
    case PE_FrameGroupBox:
      paintBox(*painter, option->rect, 10, look_[Token::raised], {look_[Token::line]});
      return;
    case PE_IndicatorArrowDown:
      paintChevron(*painter, look_, *option, QStringLiteral("chevron-down"));
      return;
    case PE_IndicatorArrowUp:
      paintChevron(*painter, look_, *option, QStringLiteral("chevron-up"));
      return;
    case PE_IndicatorArrowRight:
      paintChevron(*painter, look_, *option, QStringLiteral("chevron-right"));
      return;
    case PE_IndicatorHeaderArrow:  // drawn with the label, behind it
    case PE_FrameFocusRect:
    case PE_FrameMenu:
    case PE_FrameStatusBarItem:
    case PE_IndicatorBranch:
    case PE_PanelMenuBar: return;
    default: QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void QuilletStyle::drawControl(ControlElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  const SavedPainter saved(painter);
  switch (element) {
    case CE_PushButton:
      // Whole: Fusion would ask itself for the parts, and lay the text into its own rectangle.
      drawControl(CE_PushButtonBevel, option, painter, widget);
      drawControl(CE_PushButtonLabel, option, painter, widget);
      return;
    case CE_PushButtonBevel: drawPrimitive(PE_PanelButtonCommand, option, painter, widget); return;
    case CE_PushButtonLabel:
      parts::paintButtonLabel(*painter, look_, as<QStyleOptionButton>(option), buttonKindOf(widget),
                              buttonIconOf(widget));
      return;
    case CE_CheckBoxLabel:
    case CE_RadioButtonLabel: {
      const auto& button = as<QStyleOptionButton>(option);
      const bool isEnabled = button.state.testFlag(State_Enabled);
      look_.text.draw(*painter,
                      {QRectF(button.rect),
                       button.direction == Qt::RightToLeft ? TextAnchor::right : TextAnchor::left},
                      parts::withoutMnemonics(button.text), kBodyType,
                      look_[isEnabled ? Token::text : Token::disabled]);
      return;
    }
    case CE_ComboBoxLabel: {
      const auto& combo = as<QStyleOptionComboBox>(option);
      parts::paintComboBoxLabel(*painter, look_, combo,
                                subControlRect(CC_ComboBox, &combo, SC_ComboBoxEditField, widget),
                                buttonKindOf(widget));
      return;
    }
    case CE_MenuBarEmptyArea: painter->fillRect(option->rect, look_[Token::side]); return;
    case CE_MenuBarItem:
      parts::paintMenuBarItem(*painter, look_, as<QStyleOptionMenuItem>(option));
      return;
    case CE_MenuItem: {
      QStyleOptionMenuItem item = as<QStyleOptionMenuItem>(option);
      // A menu keeps its entries off its sides, what opens from a combo box does not.
      if (qobject_cast<const QComboBox*>(widget) != nullptr) item.rect.adjust(4, 0, -4, 0);
      parts::paintMenuItem(*painter, look_, item);
      return;
    }
    case CE_ProgressBarGroove:
      parts::paintProgressBar(*painter, look_, as<QStyleOptionProgressBar>(option));
      return;
    case CE_ProgressBarContents:
    case CE_ProgressBarLabel: return;
    case CE_HeaderSection:
    case CE_HeaderEmptyArea: parts::paintHeaderSection(*painter, look_, option->rect); return;
    case CE_HeaderLabel:
      parts::paintHeaderLabel(*painter, look_, as<QStyleOptionHeader>(option));
      return;
    case CE_TabBarTabShape: parts::paintTabShape(*painter, look_, *option); return;
    case CE_TabBarTabLabel:
      parts::paintTabLabel(*painter, look_, as<QStyleOptionTab>(option));
      return;
    case CE_Splitter: painter->fillRect(option->rect, look_[Token::line]); return;
    case CE_FocusFrame: {
      const auto* frame = qobject_cast<const QFocusFrame*>(widget);
      if (frame == nullptr || frame->widget() == nullptr) return;
      const int margin = pixelMetric(PM_FocusFrameHMargin, option, widget);
      if (const auto shape = ringShapeOf(*frame->widget())) {
        parts::paintFocusRing(*painter, look_, shape->rect.translated(margin, margin),
                              shape->radius);
      }
      return;
    }
    default: QProxyStyle::drawControl(element, option, painter, widget);
  }
}

void QuilletStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
  const SavedPainter saved(painter);
  const auto part = [&](SubControl which) {
    return subControlRect(control, option, which, widget);
  };
  switch (control) {
    case CC_ComboBox:
      parts::paintComboBox(*painter, look_, as<QStyleOptionComboBox>(option), buttonKindOf(widget));
      return;
    case CC_SpinBox:
      parts::paintSpinBox(*painter, look_, as<QStyleOptionSpinBox>(option), part(SC_SpinBoxUp),
                          part(SC_SpinBoxDown));
      return;
    case CC_Slider: parts::paintSlider(*painter, look_, as<QStyleOptionSlider>(option)); return;
    case CC_ScrollBar:
      parts::paintScrollBar(*painter, look_, as<QStyleOptionSlider>(option),
                            part(SC_ScrollBarSlider));
      return;
    case CC_ToolButton:
      parts::paintToolButton(*painter, look_, as<QStyleOptionToolButton>(option),
                             buttonIconOf(widget));
      return;
    default: QProxyStyle::drawComplexControl(control, option, painter, widget);
  }
}

int QuilletStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                              const QWidget* widget) const {
  static const std::map<PixelMetric, int> kMetrics{
      {PM_ScrollBarExtent, 8},
      {PM_ScrollBarSliderMin, 32},
      {PM_CheckBoxLabelSpacing, 8},
      {PM_RadioButtonLabelSpacing, 8},
      {PM_SliderLength, 16},
      {PM_SliderThickness, 16},
      {PM_SliderControlThickness, 16},
      {PM_MenuPanelWidth, 1},
      {PM_MenuHMargin, 4},
      {PM_MenuVMargin, 4},
      {PM_MenuBarPanelWidth, 0},
      {PM_MenuBarVMargin, 0},
      {PM_MenuBarItemSpacing, 0},
      {PM_MenuBarHMargin, 8},
      {PM_SmallIconSize, 16},
      {PM_ButtonIconSize, 16},
      {PM_ButtonShiftHorizontal, 0},
      {PM_ButtonShiftVertical, 0},
      {PM_HeaderMargin, 8},
      {PM_HeaderMarkSize, 12},
      {PM_ToolTipLabelFrameWidth, 6},
      {PM_TabBarTabHSpace, 24},
      {PM_FocusFrameHMargin, 3},
      {PM_FocusFrameVMargin, 3},
      {PM_SplitterWidth, 1},
      {PM_TreeViewIndentation, 0},
  };
  if (metric == PM_DefaultFrameWidth && isField(widget)) return 1;
  if (isIndicator(metric)) return static_cast<int>(parts::indicatorSide(look_));
  const auto found = kMetrics.find(metric);
  return found != kMetrics.end() ? found->second : QProxyStyle::pixelMetric(metric, option, widget);
}

int QuilletStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* result) const {
  static const std::map<StyleHint, int> kHints{
      {SH_EtchDisabledText, 0},
      {SH_DitherDisabledText, 0},
      {SH_Widget_Animation_Duration, 0},
      {SH_UnderlineShortcut, 0},
      {SH_ComboBox_Popup, 1},  // whose entries are drawn like those of a menu
      {SH_ScrollBar_Transient, 0},
      {SH_FocusFrame_Mask, 0},  // it would cut the ring's corners
      {SH_FocusFrame_AboveWidget, 1},
      {SH_ToolTipLabel_Opacity, 255},
      {SH_Menu_SupportsSections, 1},
      {SH_ScrollView_FrameOnlyAroundContents, 0},
      {SH_ItemView_ShowDecorationSelected, 1},
      {SH_DialogButtonBox_ButtonsHaveIcons, 0},
      {SH_Slider_AbsoluteSetButtons, Qt::LeftButton},
  };
  if ((hint == SH_Menu_Mask || hint == SH_ToolTip_Mask) && option != nullptr) {
    // Without a compositor a translucent window has black corners; a mask cuts them off.
    if (auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(result)) {
      mask->region =
          roundedRegion(option->rect, hint == SH_Menu_Mask ? kMenuCorner : kTooltipCorner);
      return 1;
    }
  }
  const auto found = kHints.find(hint);
  return found != kHints.end() ? found->second
                               : QProxyStyle::styleHint(hint, option, widget, result);
}

QSize QuilletStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                     const QSize& contents, const QWidget* widget) const {
  constexpr int kToolButton = 32;
  const int height = parts::controlHeight(look_);
  constexpr int kHeaderHeight = 28;
  switch (type) {
    case CT_PushButton:
      return parts::buttonSize(look_, as<QStyleOptionButton>(option), buttonIconOf(widget));
    case CT_LineEdit: return {contents.width() + 20, height};
    case CT_SpinBox: return {contents.width() + 38, height};
    case CT_ComboBox: return {qCeil(choicesWidth(look_, contents.width(), widget)) + 36, height};
    case CT_ToolButton: return {kToolButton, kToolButton};
    case CT_TabBarTab: return {contents.width(), height};
    case CT_CheckBox:
    case CT_RadioButton: {
      const QString text = parts::withoutMnemonics(as<QStyleOptionButton>(option).text);
      const double before = parts::indicatorSide(look_) + 8;
      return {qCeil(before + look_.text.width(text, kBodyType)), qCeil(20 * look_.growth())};
    }
    case CT_MenuItem: return parts::menuItemSize(look_, as<QStyleOptionMenuItem>(option));
    case CT_HeaderSection: return {contents.width(), kHeaderHeight};
    case CT_MenuBarItem: return parts::menuBarItemSize(look_, as<QStyleOptionMenuItem>(option));
    default: return QProxyStyle::sizeFromContents(type, option, contents, widget);
  }
}

QRect QuilletStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                   SubControl part, const QWidget* widget) const {
  const auto mirrored = [&](const QRect& rect) {
    return visualRect(option->direction, option->rect, rect);
  };
  switch (control) {
    case CC_ComboBox:
      if (part == SC_ComboBoxListBoxPopup) break;
      return mirrored(comboBoxPart(option->rect, part));
    case CC_SpinBox: return mirrored(spinBoxPart(option->rect, part));
    case CC_ScrollBar:
      return scrollBarPart(as<QStyleOptionSlider>(option), part,
                           pixelMetric(PM_ScrollBarSliderMin, option, widget));
    default: break;
  }
  return QProxyStyle::subControlRect(control, option, part, widget);
}

QRect QuilletStyle::subElementRect(SubElement element, const QStyleOption* option,
                                   const QWidget* widget) const {
  if (element == SE_PushButtonContents) return option->rect;
  if (element == SE_HeaderLabel) return option->rect.adjusted(8, 0, -8, 0);
  if (element == SE_HeaderArrow) return {};
  // Upon which a field keeps two pixels of its own.
  if (element == SE_LineEditContents && !isInnerField(widget)) {
    return option->rect.adjusted(9, 1, -7, -1);
  }
  return QProxyStyle::subElementRect(element, option, widget);
}

/// What Qt's own dialogs show, and what every menu bar asks for when it is made: to look for it in
/// the desktop's theme would take longer than to make a dialog.
QIcon QuilletStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                                 const QWidget* widget) const {
  const auto own = std::ranges::find(kStandardIcons, which, &StandardIcon::which);
  if (own == kStandardIcons.end()) return QProxyStyle::standardIcon(which, option, widget);
  const int size = pixelMetric(PM_SmallIconSize, option, widget);
  const double ratio = widget == nullptr ? qApp->devicePixelRatio() : widget->devicePixelRatioF();
  return look_.icons.pixmap(QLatin1String(own->name), size, look_[Token::secondary], ratio);
}

void QuilletStyle::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  if (qobject_cast<QAbstractButton*>(widget) != nullptr ||
      qobject_cast<QComboBox*>(widget) != nullptr || isField(widget) ||
      qobject_cast<QSlider*>(widget) != nullptr || qobject_cast<QScrollBar*>(widget) != nullptr ||
      qobject_cast<QTabBar*>(widget) != nullptr) {
    widget->setAttribute(Qt::WA_Hover);
  }
}

}  // namespace quillet
