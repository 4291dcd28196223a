// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/local_command.h"

#include "base/columns.h"
#include "cli/folding.h"
#include "cli/local/collections_text.h"
#include "cli/local/my_apps_text.h"
#include "cli/local/purchase_history_text.h"
#include "cli/local/quick_json.h"
#include "cli/local/rank_history_text.h"
#include "cli/local/saved_searches.h"
#include "cli/local/watchlist_text.h"
#include "system/user_locale.h"

namespace quillet {

namespace {

std::string runCollections(const LocalCall& call, OutputForm form, const TextStyle& style) {
  const CLICollections all = readCollections(call);
  if (call.options.operands.empty()) return renderCollectionsText(all, style);
  const CLICollection& picked = pickCollection(all, call.options.operands.front());
  return form == OutputForm::json ? renderCollectionJson(picked)
                                  : renderCollectionText(picked, style);
}

std::string runSavedSearches(const LocalCall& call, OutputForm form, const TextStyle& style) {
  const CLISavedSearches searches = readSavedSearches(call);
  return form == OutputForm::json ? renderSavedSearchesJson(searches)
                                  : renderSavedSearchesText(searches, style);
}

std::string textOf(const CommandInvocation& invocation, const LocalCall& call,
                   const LocalSurroundings& around) {
  const LocaleFormats& formats = around.formats;
  const TextStyle style{.utf8 = usesUtf8(around.environment), .width = around.width};
  switch (invocation.command->id) {
    case CommandId::watchlist: return renderWatchlistText(readWatchlist(call), formats, style);
    case CommandId::myApps: return renderMyAppsText(readMyApps(call), formats, style);
    case CommandId::purchaseHistory:
      return renderPurchaseHistoryText(readPurchaseHistory(call), formats, style);
    case CommandId::rankHistory:
      return renderRankHistory(readRankHistory(call), invocation.form, around.zone, style);
    case CommandId::collections: return runCollections(call, invocation.form, style);
    case CommandId::savedSearches: return runSavedSearches(call, invocation.form, style);
    default: throw unknownCommand(invocation.command->word);
  }
}

}  // namespace

std::string runLocalCommand(const CommandInvocation& invocation,
                            const LocalSurroundings& surroundings) {
  const LocalCall call{invocation.options, surroundings.environment, surroundings.queryLog,
                       surroundings.tell};
  if (const JsonHandler quick = findQuickJson(invocation)) return quick(call);
  std::string text = textOf(invocation, call, surroundings);
  const bool isFolded =
      invocation.form == OutputForm::text && !kPrintsCommands.contains(invocation.command->id);
  return isFolded ? folded(text, surroundings.width, columnCount) : text;
}

}  // namespace quillet
