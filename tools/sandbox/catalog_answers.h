// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "base/json_writer.h"
#include "sandbox/records.h"
#include "sandbox/request.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

// What the answers of the catalog's service have in common.

/// The build that the "platform" item names: "mac", or "ipad" and "iphone" for the other one. The
/// storefront stands in the request's first capture.
[[nodiscard]] RecordView catalogView(const Request& request);

/// The refusal of a request that the catalog does not take: 429 for a client that calls itself
/// something else than a browser, 404 for an unknown storefront, 400 without a platform. Absent
/// when all is well; only then is there a view.
[[nodiscard]] std::optional<Answer> catalogRefusal(const Request& request);

/// An error as the catalog words it.
[[nodiscard]] Answer catalogError(int status, std::string_view title, std::string_view detail);

/// The IDs of the "ids" item, in order; absent when there are none or more than the catalog takes
/// at once.
[[nodiscard]] std::optional<std::vector<std::string>> catalogIds(const Request& request);
[[nodiscard]] Answer wrongIds();

/// The apps of the list that the storefront sells, in order.
[[nodiscard]] std::vector<SampleApp> catalogApps(const SampleStore& store,
                                                 const std::vector<std::string>& ids,
                                                 Storefront storefront);

/// An answer's list of resources, opened and closed; write the resources between the two.
class ResourceList {
 public:
  ResourceList();

  [[nodiscard]] JsonWriter& json() { return json_; }
  /// `next` is the address of a further page; empty: there is none.
  [[nodiscard]] Answer take(std::string_view next = {});

 private:
  JsonWriter json_;
};

}  // namespace quillet::sandbox
