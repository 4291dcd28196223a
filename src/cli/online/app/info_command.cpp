// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/app_build.h"
#include "cli/online/app/app_lookup.h"
#include "cli/online/app/info_result.h"
#include "cli/online/app/info_text.h"
#include "cli/online/command_handlers.h"

namespace quillet {

namespace {

/// What the catalog said, or why it said nothing.
struct CatalogAnswerOrReason {
  std::optional<AppEnrichment> enrichment;
  std::string notice;
};

/// The page is worth printing without the catalog; a rate limit alone is waited out.
Task<CatalogAnswerOrReason> askCatalog(std::int64_t trackId, Platform platform, CommandCall call) {
  CatalogAnswerOrReason answer;
  const QueryCall question = call.question();
  question.report({QueryStage::catalog});
  try {
    answer.enrichment = co_await call.services.catalog.enrichment(trackId, call.options.country,
                                                                  platform, question.context);
  } catch (...) {
    const auto error = std::current_exception();
    if (isWaitedOut(error)) throw;
    answer.notice = unreadNotice("the catalog", error);
  }
  co_return answer;
}

}  // namespace

Task<CommandResult> runInfo(CommandCall call) {
  const CLIOptions& options = call.options;
  std::string operand = appOperand("info", options.operands);
  ITunesApp app = co_await lookUpApp(std::move(operand), call);
  const Platform platform = options.platform.value_or(ownPlatform(app));
  CatalogAnswerOrReason answer = co_await askCatalog(app.trackId, platform, call);

  CommandResult result;
  result.notice = answer.enrichment ? missingBuildNotice(app, platform, *answer.enrichment)
                                    : std::move(answer.notice);
  const LocaleFormats& formats = call.services.formats;
  const DescribedApp described =
      describeApp(std::move(app), platform, std::move(answer.enrichment));
  const CLIAppDetail detail = detailOf(described, options.country, formats);
  result.text = call.form == OutputForm::json ? renderInfoJson(detail)
                                              : renderInfoText(detail, formats, call.style);
  co_return result;
}

}  // namespace quillet
