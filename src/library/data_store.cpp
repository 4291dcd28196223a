// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/data_store.h"

namespace quillet {

DataStore::DataStore() {
  thread_.setMaxThreadCount(1);
  thread_.setExpiryTimeout(-1);
}

DataStore::~DataStore() { thread_.waitForDone(); }

Task<std::unique_ptr<DataStore>> DataStore::open(std::filesystem::path file, LogSink queryLog) {
  std::unique_ptr<DataStore> store(new DataStore);
  auto connect = [file = std::move(file), queryLog = std::move(queryLog)] {
    return std::make_unique<LibraryConnection>(file, queryLog);
  };
  Task<std::unique_ptr<LibraryConnection>> connecting = onPool(&store->thread_, std::move(connect));
  store->connection_ = co_await connecting;
  co_return store;
}

void DataStore::tell(const LibraryChanges& changes) {
  if (changes != LibraryChanges()) Q_EMIT changed(changes);
}

}  // namespace quillet
