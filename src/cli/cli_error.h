// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/enum_table.h"
#include "cli/streams.h"

namespace quillet {

/// The one form in which every failure of the command line ends.
class CLIError : public std::runtime_error {
 public:
  enum class Code {
    validation,       ///< a bad option value, an unknown option
    missingRequired,  ///< a required operand or value is absent
    notFound,         ///< the thing asked about does not exist, or nothing matched
    rateLimited,      ///< Apple answered HTTP 429
    offline,          ///< the network could not reach Apple
    upstream,         ///< Apple answered with an error or an unusable answer
    internal,         ///< anything else
  };

  /// `suggestions`: command lines to try, or instructions.
  CLIError(Code code, const std::string& message, std::vector<std::string> suggestions = {});

  [[nodiscard]] Code code() const { return code_; }
  /// The whole of it: what() ends before a NUL, which a name from the store can hold.
  [[nodiscard]] const std::string& message() const { return message_; }
  [[nodiscard]] const std::vector<std::string>& suggestions() const { return suggestions_; }

 private:
  Code code_;
  std::string message_;
  std::vector<std::string> suggestions_;
};

// Scripts read these; never change.
inline constexpr EnumTable<CLIError::Code, 7> kErrorCodeTexts{{
    {CLIError::Code::validation, "VALIDATION"},
    {CLIError::Code::missingRequired, "MISSING_REQUIRED"},
    {CLIError::Code::notFound, "NOT_FOUND"},
    {CLIError::Code::rateLimited, "RATE_LIMITED"},
    {CLIError::Code::offline, "OFFLINE"},
    {CLIError::Code::upstream, "UPSTREAM"},
    {CLIError::Code::internal, "INTERNAL"},
}};
static_assert(isComplete(kErrorCodeTexts, CLIError::Code::internal));

/// The process's exit statuses. Scripts read these; never change.
enum class ExitStatus {
  ok = 0,
  nothingFound = 1,
  badUsage = 2,
  failure = 3,  ///< network, upstream, internal
  rateLimited = 4,
};

[[nodiscard]] ExitStatus exitStatusOf(CLIError::Code code);

/// Any error as a CLIError: the one place where errors become words.
[[nodiscard]] CLIError toCLIError(const std::exception_ptr& error);

/// Whether the runner waits it out and runs the command again: Apple's rate limit.
[[nodiscard]] bool isWaitedOut(const std::exception_ptr& error);

/// One line for someone who has to do without `what`: "the catalog could not be read: " and why.
[[nodiscard]] std::string unreadNotice(std::string_view what, const std::exception_ptr& error);

/// Suggests storefronts to someone who found no published prices.
[[nodiscard]] std::string trackedStorefrontsHint();

/// What standard error shows for an error, final line feed included. In text, sentences are folded
/// at the `width` of a terminal (0: not at all), and commands to copy are not.
[[nodiscard]] std::string renderError(const CLIError& error, OutputForm form,
                                      std::size_t width = 0);

/// Writes what standard error shows for an error; returns the status that the process ends with.
ExitStatus reportError(const CLIError& error, OutputForm form, const Streams& streams);

/// A line for standard error about a command that went on: "quillet: " and the remark, folded.
[[nodiscard]] std::string renderRemark(std::string_view remark, std::size_t width);

/// What answers a word that reaches a runner without a handler for it.
[[nodiscard]] CLIError unknownCommand(std::string_view word);

}  // namespace quillet
