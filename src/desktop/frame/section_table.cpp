// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/section_table.h"

#include <QCoreApplication>

namespace quillet {

QString nameOf(SectionId id) { return QCoreApplication::translate("Sections", faceOf(id).name); }

}  // namespace quillet
