// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "library/data_store.h"
#include "queries/query_call.h"

namespace quillet {

/// Knows what the store has of the apps in My Apps: each is looked up once a day, which of them are
/// gone as well as which have an update. Those that a price check has asked for need no lookup.
///
/// An object of the event-loop thread; its collaborators outlive it and all lookups.
class OwnedLookup {
 public:
  OwnedLookup(DataStore& store, QueryServices services) : store_(store), services_(services) {}

  /// Asks for those that are due, a hundred of one storefront at a time, as background work and
  /// with the patience of askPatiently(). Nothing while another one runs. Each hundred is one
  /// transaction, so that what came before a failure is kept. Throws what matchBundles() throws,
  /// and DatabaseError.
  Task<> look(StopToken stop);

 private:
  Task<> lookAll(StopToken stop);

  DataStore& store_;
  QueryServices services_;
  bool isLooking_ = false;
};

}  // namespace quillet
