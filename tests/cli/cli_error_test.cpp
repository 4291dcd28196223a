// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/cli_error.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "store/records/itunes_error.h"
#include "store/records/price_data_error.h"

namespace quillet {
namespace {

using Code = CLIError::Code;

template <typename Error>
CLIError converted(const Error& error) {
  return toCLIError(std::make_exception_ptr(error));
}

TEST(CLIError, GivesEveryErrorItsCodeWordsAndStatus) {
  const auto network = [](NetworkError::Kind kind) {
    return converted(NetworkError(kind, "host not found"));
  };
  const std::tuple<CLIError, std::string, ExitStatus> rows[] = {
      {converted(ITunesError::httpStatus(429)),
       "quillet: Apple is rate limiting this address (HTTP 429).\n"
       "  try: Wait a minute, then run the same command again.\n",
       ExitStatus::rateLimited},
      {converted(ITunesError::httpStatus(503)), "quillet: Apple's server returned HTTP 503.\n",
       ExitStatus::failure},
      {converted(ITunesError::invalidURL()), "quillet: Invalid request URL.\n",
       ExitStatus::failure},
      {network(NetworkError::Kind::cannotReach),
       "quillet: Could not reach Apple: host not found.\n", ExitStatus::failure},
      {network(NetworkError::Kind::failed), "quillet: Request failed: host not found.\n",
       ExitStatus::failure},
      {converted(PriceDataError::httpStatus(404, "file:///data/changes-us.json.gz")),
       "quillet: No published price data at file:///data/changes-us.json.gz.\n"
       "  try: Tracked storefronts: us, gb, de, fr, ca, au, jp, it, es, nl\n"
       "  try: quillet-collector fills that folder: quillet-collector --help\n",
       ExitStatus::nothingFound},
      {converted(BadSetting("QUILLET_ITUNES_URL is no address.")),
       "quillet: QUILLET_ITUNES_URL is no address.\n", ExitStatus::badUsage},
      {converted(DecodingError("not JSON")), "quillet: not JSON\n", ExitStatus::failure},
      {converted(17), "quillet: An unknown error occurred.\n", ExitStatus::failure},
      {converted(CLIError(Code::notFound, "Nothing.", {"a", "b"})),
       "quillet: Nothing.\n  try: a\n  try: b\n", ExitStatus::nothingFound},
      {unknownCommand("info"), "quillet: Unknown command 'info'.\n", ExitStatus::badUsage},
  };
  for (const auto& [error, text, status] : rows) {
    EXPECT_EQ(renderError(error, OutputForm::text), text);
    EXPECT_EQ(exitStatusOf(error.code()), status) << text;
  }
  EXPECT_EQ(network(NetworkError::Kind::notConnected).code(), Code::offline);
  EXPECT_EQ(network(NetworkError::Kind::tooLarge).code(), Code::upstream);
  EXPECT_EQ(converted(DecodingError("")).code(), Code::internal);
}

TEST(CLIError, KeepsForeignTextFromATerminalButNotFromJson) {
  const CLIError error(Code::validation, "Unknown option '-\x1B[2J\n\xFF/é'.", {"\x07 try"});
  EXPECT_EQ(renderError(error, OutputForm::text),
            "quillet: Unknown option '-[2J \xEF\xBF\xBD/é'.\n  try:  try\n");
  EXPECT_EQ(renderError(error, OutputForm::json), R"({
  "error": {
    "code": "VALIDATION",
    "message": "Unknown option '-\u001b[2J\n)"
                                                  "\xEF\xBF\xBD"
                                                  R"(/é'.",
    "suggestions": [
      "\u0007 try"
    ]
  }
}
)");
}

}  // namespace
}  // namespace quillet
