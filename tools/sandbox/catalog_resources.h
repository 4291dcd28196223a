// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

#include "base/json_writer.h"
#include "sandbox/sample_app.h"
#include "sandbox/sample_reviews.h"

namespace quillet::sandbox {

// The smaller resources of the catalog, which stand in an app's relationships and views and on
// pages of their own.

/// A member with the best-selling purchases of an app, with their prices in the storefront. Some
/// have more offers than one; the price to pay stands in the first that has one.
void writePurchaseList(JsonWriter& json, std::string_view name, const SampleApp& app,
                       Storefront storefront);

void writeReview(JsonWriter& json, const SampleReview& review);

/// A resource of which only the name is told.
void writeReference(JsonWriter& json, const std::string& id, const char* type);

}  // namespace quillet::sandbox
