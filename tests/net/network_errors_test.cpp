// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/network_errors.h"

#include <gtest/gtest.h>

#include <string>

namespace quillet {
namespace {

TEST(NetworkErrors, EachQtErrorHasAKindAndAClause) {
  using Kind = NetworkError::Kind;
  struct Row {
    QNetworkReply::NetworkError code;
    const char* text;
    Kind kind;
    std::string clause;
  };
  const Row rows[] = {
      {QNetworkReply::HostNotFoundError, "Host store.example not found", Kind::cannotReach,
       "Host store.example not found"},
      {QNetworkReply::OperationCanceledError, "Operation canceled", Kind::cannotReach,
       "The request timed out"},
      {QNetworkReply::TemporaryNetworkFailureError, "Unknown error", Kind::cannotReach,
       "The transfer failed"},
      {QNetworkReply::UnknownNetworkError, "Network unreachable", Kind::notConnected,
       "Network unreachable"},
      {QNetworkReply::UnknownNetworkError, "Unknown error", Kind::notConnected,
       "The network is unreachable"},
      {QNetworkReply::SslHandshakeFailedError,
       "SSL handshake failed: The certificate is self-signed, and untrusted", Kind::failed,
       "SSL handshake failed: The certificate is self-signed, and untrusted"},
      {QNetworkReply::UnknownContentError, "Decompression failed: ", Kind::failed,
       "Decompression failed"},
  };
  for (const Row& row : rows) {
    const NetworkError error = transferError(row.code, QString::fromLatin1(row.text));
    EXPECT_EQ(error.kind(), row.kind) << row.text;
    EXPECT_EQ(error.what(), row.clause);
  }
}

}  // namespace
}  // namespace quillet
