// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/network_errors.h"

#include <fmt/format.h>

#include <string>

namespace quillet {
namespace {

using Kind = NetworkError::Kind;

constexpr std::size_t kBytesPerMiB = std::size_t{1024} * 1024;

Kind kindOf(QNetworkReply::NetworkError code) {
  switch (code) {
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::RemoteHostClosedError:
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::TimeoutError:
    case QNetworkReply::OperationCanceledError:
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
    case QNetworkReply::ProxyConnectionRefusedError:
    case QNetworkReply::ProxyConnectionClosedError:
    case QNetworkReply::ProxyNotFoundError:
    case QNetworkReply::ProxyTimeoutError: return Kind::cannotReach;
    case QNetworkReply::UnknownNetworkError:  // network unreachable, interface down
      return Kind::notConnected;
    default: return Kind::failed;
  }
}

/// Our own words where Qt's are wrong or say nothing ("Operation canceled" for a time-out,
/// "Unknown error" for a network that is down); null where Qt's read well.
const char* ownText(QNetworkReply::NetworkError code, const QString& text) {
  const bool saysNothing = text.isEmpty() || text == QLatin1String("Unknown error");
  switch (code) {
    case QNetworkReply::TimeoutError:
    case QNetworkReply::OperationCanceledError: return "The request timed out";
    case QNetworkReply::RemoteHostClosedError: return "The connection was lost";
    case QNetworkReply::UnknownNetworkError:
      return saysNothing ? "The network is unreachable" : nullptr;
    default: return saysNothing ? "The transfer failed" : nullptr;
  }
}

/// A clause without the full stop or colon that some of Qt's texts end with.
std::string clause(const QString& text) {
  std::string words = text.trimmed().toStdString();
  while (words.ends_with('.') || words.ends_with(':')) words.pop_back();
  return words;
}

std::string sizeText(std::size_t bytes) {
  if (bytes >= kBytesPerMiB && bytes % kBytesPerMiB == 0) {
    return fmt::format("{} MiB", bytes / kBytesPerMiB);
  }
  return fmt::format("{} bytes", bytes);
}

}  // namespace

NetworkError cancelledError() { return {Kind::cancelled, "Cancelled"}; }

NetworkError tooLargeError(std::size_t limit) {
  return {Kind::tooLarge, "The answer is larger than " + sizeText(limit)};
}

NetworkError brokenEncodingError() {
  return {Kind::failed, "The answer could not be decompressed"};
}

NetworkError transferError(QNetworkReply::NetworkError code, const QString& text) {
  const char* own = ownText(code, text);
  return {kindOf(code), own != nullptr ? std::string(own) : clause(text)};
}

}  // namespace quillet
