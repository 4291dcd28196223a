// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/kept_size.h"

#include <QJsonObject>

namespace quillet {

namespace {

constexpr QSize kMost(4000, 4000);

}  // namespace

QSize keptSize(const StateFile& state, const QString& window, const QSize& usual,
               const QSize& least) {
  const QJsonObject kept = state.value(window).toObject();
  const QSize size(kept.value(QStringLiteral("width")).toInt(usual.width()),
                   kept.value(QStringLiteral("height")).toInt(usual.height()));
  return size.expandedTo(least).boundedTo(kMost);
}

void keepSize(StateFile& state, const QString& window, const QSize& size) {
  state.setValue(window, QJsonObject{{QStringLiteral("width"), size.width()},
                                     {QStringLiteral("height"), size.height()}});
}

}  // namespace quillet
