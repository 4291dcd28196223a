// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/button_look.h"

#include <QVariant>
#include <QWidget>

namespace quillet {

namespace {

constexpr const char* kKind = "quilletKind";
constexpr const char* kIcon = "quilletIcon";
constexpr const char* kIconSize = "quilletIconSize";
constexpr const char* kSearch = "quilletSearch";

QVariant propertyOf(const QWidget* widget, const char* name) {
  return widget == nullptr ? QVariant() : widget->property(name);
}

}  // namespace

void setButtonKind(QWidget& widget, ButtonKind kind) {
  widget.setProperty(kKind, static_cast<int>(kind));
  widget.update();
}

ButtonKind buttonKindOf(const QWidget* widget) {
  return static_cast<ButtonKind>(propertyOf(widget, kKind).toInt());
}

void setIconName(QWidget& widget, const QString& name, double size) {
  widget.setProperty(kIcon, name);
  widget.setProperty(kIconSize, size);
  widget.updateGeometry();
  widget.update();
}

ButtonIcon buttonIconOf(const QWidget* widget) {
  return {propertyOf(widget, kIcon).toString(), propertyOf(widget, kIconSize).toDouble()};
}

void setSearchField(QWidget& field) { field.setProperty(kSearch, true); }

bool isSearchField(const QWidget* widget) { return propertyOf(widget, kSearch).toBool(); }

}  // namespace quillet
