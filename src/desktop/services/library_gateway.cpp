// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/library_gateway.h"

namespace quillet {

void LibraryGateway::use(DataStore& store) {
  store_ = &store;
  connect(&store, &DataStore::changed, this, &LibraryGateway::changed);
  for (const Completion& each : std::exchange(waiting_, {})) each.set();
  Q_EMIT opened();
}

Task<> LibraryGateway::isThere() {
  const Completion open;
  waiting_.push_back(open);
  co_await open;
}

void LibraryGateway::watch(const std::filesystem::path& library) {
  watch_ = std::make_unique<LibraryWatch>(*store_, library);
  connect(watch_.get(), &LibraryWatch::writtenElsewhere, this, &LibraryGateway::changedElsewhere);
}

}  // namespace quillet
