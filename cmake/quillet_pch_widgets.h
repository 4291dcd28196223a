// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QWidget>

#include "quillet_pch_qt.h"
