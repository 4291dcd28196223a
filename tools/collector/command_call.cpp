// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/command_call.h"

#include "collector/record_tables.h"

namespace quillet {

std::string CommandCall::address() const {
  std::string address = options.database;
  if (address.empty()) address = world.environment.get("QUILLET_COLLECTOR_DATABASE").value_or("");
  return address.empty() ? (places.dataDirectory / "collector.db").string() : address;
}

std::unique_ptr<SqlDatabase> CommandCall::record() const {
  auto database = openDatabase(address(), watch());
  requireRecord(*database);
  return database;
}

std::filesystem::path CommandCall::publishedFolder() const {
  if (options.folder.empty()) return places.dataDirectory / "price-data";
  return options.folder;
}

}  // namespace quillet
