// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/network_errors.h"

#include <gtest/gtest.h>

#include <string>

namespace quillet {
namespace {

using Kind = NetworkError::Kind;
using Reply = QNetworkReply;

TEST(NetworkErrors, EachQtErrorHasAKindAndAClause) {
  const std::tuple<Reply::NetworkError, const char*, Kind, std::string> rows[] = {
      {Reply::HostNotFoundError, "Host a.b not found", Kind::cannotReach, "Host a.b not found"},
      {Reply::TemporaryNetworkFailureError, "Unknown error", Kind::cannotReach,
       "The transfer failed"},
      {Reply::UnknownNetworkError, "Unreachable", Kind::notConnected, "Unreachable"},
      {Reply::UnknownNetworkError, "Unknown error", Kind::notConnected,
       "The network is unreachable"},
      {Reply::SslHandshakeFailedError, "Self-signed: no.", Kind::failed, "Self-signed: no"},
      {Reply::UnknownContentError, "Failed: ", Kind::failed, "Failed"},
  };
  for (const auto& [code, text, kind, expected] : rows) {
    const NetworkError error = transferError(code, QString::fromLatin1(text));
    EXPECT_EQ(error.kind(), kind) << text;
    EXPECT_EQ(error.what(), expected);
  }
}

}  // namespace
}  // namespace quillet
