// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/cli_error.h"

#include <fmt/format.h>

#include "base/errors.h"
#include "base/json_writer.h"
#include "base/text.h"
#include "cli/folding.h"
#include "store/records/itunes_error.h"
#include "store/records/price_seed_error.h"
#include "store/records/storefronts.h"

namespace quillet {

namespace {

using Code = CLIError::Code;

constexpr int kTooManyRequests = 429;

CLIError fromStatus(int status) {
  if (status == kTooManyRequests) {
    return {Code::rateLimited,
            "Apple is rate limiting this address (HTTP 429).",
            {"Wait a minute, then run the same command again."}};
  }
  return {Code::upstream, fmt::format("Apple's server returned HTTP {}.", status)};
}

CLIError fromITunes(const ITunesError& error) {
  if (error.kind() == ITunesError::Kind::httpStatus) return fromStatus(error.status());
  return {Code::upstream, error.what()};
}

CLIError fromNetwork(const NetworkError& error) {
  switch (error.kind()) {
    case NetworkError::Kind::notConnected:
    case NetworkError::Kind::cannotReach:
      return {Code::offline, fmt::format("Could not reach Apple: {}.", error.what())};
    case NetworkError::Kind::cancelled:
    case NetworkError::Kind::tooLarge:
    case NetworkError::Kind::failed: break;
  }
  return {Code::upstream, fmt::format("Request failed: {}.", error.what())};
}

CLIError fromPriceSeed(const PriceSeedError& error) {
  if (error.kind() != PriceSeedError::Kind::nothingPublished) return {Code::upstream, error.what()};
  std::vector<std::string> suggestions{trackedStorefrontsHint()};
  if (error.isOfFolder()) {
    suggestions.emplace_back("quillet-collector fills that folder: quillet-collector --help");
  }
  return {Code::notFound, error.what(), std::move(suggestions)};
}

/// A clause or a sentence. An answer's own text would say again that it could not be read.
std::string reasonOf(const std::exception_ptr& error) {
  try {
    std::rethrow_exception(error);
  } catch (const UnreadableAnswer& known) {
    return known.reason();
  } catch (...) {
    return toCLIError(error).message();
  }
}

std::string suggestionLine(const std::string& suggestion, std::size_t width) {
  const bool isCommand = suggestion.find("quillet ") != std::string::npos;
  return folded("  try: " + printable(suggestion), isCommand ? 0 : width, codePointCount);
}

std::string renderText(const CLIError& error, std::size_t width) {
  std::string text = renderRemark(error.message(), width);
  for (const std::string& suggestion : error.suggestions()) {
    text += suggestionLine(suggestion, width) + '\n';
  }
  return text;
}

std::string renderJson(const CLIError& error) {
  JsonWriter writer;
  writer.beginObject();
  writer.key("error");
  writer.beginObject();
  writer.member("code", textOf(kErrorCodeTexts, error.code()));
  writer.member("message", error.message());
  writer.member("suggestions", error.suggestions());
  writer.endObject();
  writer.endObject();
  return writer.take() + '\n';
}

}  // namespace

CLIError::CLIError(Code code, const std::string& message, std::vector<std::string> suggestions)
    : std::runtime_error(message),
      code_(code),
      message_(message),
      suggestions_(std::move(suggestions)) {}

ExitStatus exitStatusOf(Code code) {
  switch (code) {
    case Code::validation:
    case Code::missingRequired: return ExitStatus::badUsage;
    case Code::notFound: return ExitStatus::nothingFound;
    case Code::rateLimited: return ExitStatus::rateLimited;
    case Code::offline:
    case Code::upstream:
    case Code::internal: break;
  }
  return ExitStatus::failure;
}

CLIError toCLIError(const std::exception_ptr& error) {
  try {
    std::rethrow_exception(error);
  } catch (const CLIError& known) {
    return known;
  } catch (const ITunesError& known) {
    return fromITunes(known);
  } catch (const NetworkError& known) {
    return fromNetwork(known);
  } catch (const PriceSeedError& known) {
    return fromPriceSeed(known);
  } catch (const BadSetting& known) {
    return {Code::validation, known.what()};
  } catch (const std::exception& other) {
    return {Code::internal, other.what()};
  } catch (...) {
    return {Code::internal, "An unknown error occurred."};
  }
}

bool isWaitedOut(const std::exception_ptr& error) {
  return toCLIError(error).code() == Code::rateLimited;
}

std::string unreadNotice(std::string_view what, const std::exception_ptr& error) {
  const std::string reason = reasonOf(error);
  return fmt::format("{} could not be read: {}{}", what, reason, reason.ends_with('.') ? "" : ".");
}

std::string trackedStorefrontsHint() {
  return fmt::format("Tracked storefronts: {}", fmt::join(kTrackedStorefronts, ", "));
}

std::string renderError(const CLIError& error, OutputForm form, std::size_t width) {
  if (form == OutputForm::text) return renderText(error, width);
  try {
    return renderJson(error);
  } catch (const std::exception&) {
    return R"({"error":{"code":"INTERNAL","message":"Could not encode the error.","suggestions":[]}})"
           "\n";
  }
}

ExitStatus reportError(const CLIError& error, OutputForm form, const Streams& streams) {
  streams.err.write(renderError(error, form, streams.errWidth));
  return exitStatusOf(error.code());
}

// Usage errors are told by the executable, which must not load the tables of wide characters.
std::string renderRemark(std::string_view remark, std::size_t width) {
  return folded("quillet: " + printable(remark), width, codePointCount) + '\n';
}

CLIError unknownCommand(std::string_view word) {
  return {Code::validation, fmt::format("Unknown command '{}'.", word)};
}

}  // namespace quillet
