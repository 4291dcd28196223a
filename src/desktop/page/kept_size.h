// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>
#include <QString>

#include "desktop/services/state_file.h"

namespace quillet {

/// How large a window is to be: as it was left last, or as usual.
[[nodiscard]] QSize keptSize(const StateFile& state, const QString& window, const QSize& usual,
                             const QSize& least);
void keepSize(StateFile& state, const QString& window, const QSize& size);

}  // namespace quillet
