// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/cli_error.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "store/records/itunes_error.h"
#include "store/records/price_seed_error.h"

namespace quillet {
namespace {

using Code = CLIError::Code;

template <typename Error>
CLIError converted(const Error& error) {
  return toCLIError(std::make_exception_ptr(error));
}

TEST(CLIError, GivesEveryErrorItsCodeAndWords) {
  const auto network = [](NetworkError::Kind kind) {
    return converted(NetworkError(kind, "host not found"));
  };
  const std::tuple<CLIError, Code, std::string> rows[] = {
      {converted(ITunesError::httpStatus(503)), Code::upstream,
       "Apple's server returned HTTP 503.\n"},
      {converted(ITunesError::invalidURL()), Code::upstream, "Invalid request URL.\n"},
      {network(NetworkError::Kind::notConnected), Code::offline,
       "Could not reach Apple: host not found.\n"},
      {network(NetworkError::Kind::tooLarge), Code::upstream, "Request failed: host not found.\n"},
      {converted(PriceSeedError::httpStatus(404, "file:///data/changes-us.json.gz")),
       Code::notFound,
       "No published price data at file:///data/changes-us.json.gz.\n"
       "  try: Tracked storefronts: us, gb, de, fr, ca, au, jp, it, es, nl\n"
       "  try: quillet-collector fills that folder: quillet-collector --help\n"},
      {converted(BadSetting("QUILLET_ITUNES_URL is no address.")), Code::validation,
       "QUILLET_ITUNES_URL is no address.\n"},
      {converted(DecodingError("not JSON")), Code::internal, "not JSON\n"},
      {converted(17), Code::internal, "An unknown error occurred.\n"},
      {unknownCommand("info"), Code::validation, "Unknown command 'info'.\n"},
  };
  for (const auto& [error, code, text] : rows) {
    EXPECT_EQ(renderError(error, OutputForm::text), "quillet: " + text);
    EXPECT_EQ(error.code(), code) << text;
  }
}

TEST(CLIError, KeepsForeignTextFromATerminalButNotFromJson) {
  const CLIError error(Code::validation, "Unknown option '-\x1B[2J\n\xFF\u202E/é'.", {"\x07 try"});
  EXPECT_EQ(renderError(error, OutputForm::text),
            "quillet: Unknown option '-[2J \xEF\xBF\xBD/é'.\n  try:  try\n");
  const std::string json = renderError(error, OutputForm::json);
  EXPECT_NE(json.find("-\\u001b[2J\\n\xEF\xBF\xBD\u202E/é'."), std::string::npos) << json;
  EXPECT_NE(json.find("\"\\u0007 try\""), std::string::npos) << json;
}

TEST(CLIError, TellsWhatStandsBehindANulInAName) {
  const CLIError error(Code::upstream, std::string("The page of Two\0Parts is gone.", 30), {});
  EXPECT_EQ(renderError(error, OutputForm::text), "quillet: The page of TwoParts is gone.\n");
  const std::string json = renderError(error, OutputForm::json);
  EXPECT_NE(json.find("Two\\u0000Parts is gone."), std::string::npos) << json;
}

TEST(CLIError, FoldsSentencesForATerminalAndLeavesCommandsWhole) {
  const CLIError error(Code::notFound, "Nothing with ID 1 in the us storefront.",
                       {"The app may be sold elsewhere: try --country gb",
                        "quillet search \"a rather long name\" --json"});
  EXPECT_EQ(renderError(error, OutputForm::text, 30),
            "quillet: Nothing with ID 1 in\n"
            "the us storefront.\n"
            "  try: The app may be sold\n"
            "  elsewhere: try --country gb\n"
            "  try: quillet search \"a rather long name\" --json\n");
}

}  // namespace
}  // namespace quillet
