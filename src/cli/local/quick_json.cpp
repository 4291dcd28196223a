// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/quick_json.h"

#include "cli/local/collections.h"
#include "cli/local/my_apps.h"
#include "cli/local/purchase_history.h"
#include "cli/local/watchlist.h"

namespace quillet {

namespace {

JsonHandler handlerOf(CommandId command) {
  switch (command) {
    case CommandId::watchlist:
      return [](const LocalCall& call) { return renderWatchlistJson(readWatchlist(call)); };
    case CommandId::myApps:
      return [](const LocalCall& call) { return renderMyAppsJson(readMyApps(call)); };
    case CommandId::collections:
      return [](const LocalCall& call) { return renderCollectionsJson(readCollections(call)); };
    case CommandId::purchaseHistory:
      return [](const LocalCall& call) {
        return renderPurchaseHistoryJson(readPurchaseHistory(call));
      };
    default: return nullptr;
  }
}

}  // namespace

JsonHandler findQuickJson(const CommandInvocation& invocation) {
  if (invocation.form != OutputForm::json) return nullptr;
  // A collection is found by a name in any script, whose letters' cases the executable knows not.
  const bool namesCollection =
      invocation.command->id == CommandId::collections && invocation.options.operands.size() == 1;
  return namesCollection ? nullptr : handlerOf(invocation.command->id);
}

}  // namespace quillet
