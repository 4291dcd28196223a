// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QNetworkReply>
#include <QString>
#include <cstddef>

#include "base/errors.h"

namespace quillet {

/// The error of an operation that we stopped ourselves.
[[nodiscard]] NetworkError cancelledError();

/// The error of a body that passed its limit of `limit` bytes: "The answer is larger than 64 MiB".
[[nodiscard]] NetworkError tooLargeError(std::size_t limit);

/// The error of a body that is not packed as its head says, or was packed only in part.
[[nodiscard]] NetworkError brokenEncodingError();

/// The error of a transfer that Qt ended with `code` and the description `text`, for transfers that
/// we did not stop ourselves: Qt reports an idle time-out and an abort alike, so here
/// OperationCanceledError means that the request timed out. `code` is not NoError.
[[nodiscard]] NetworkError transferError(QNetworkReply::NetworkError code, const QString& text);

}  // namespace quillet
