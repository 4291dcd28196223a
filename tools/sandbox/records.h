// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "base/json_writer.h"
#include "sandbox/request.h"
#include "sandbox/sample_app.h"
#include "sandbox/storefronts.h"

namespace quillet::sandbox {

/// An app with builds for both has two records; which one is meant.
enum class RecordKind { mac, ios };

struct RecordView {
  RecordKind kind = RecordKind::mac;
  Storefront storefront = Storefront::us;
  Freshness freshness = Freshness::fresh;
  std::string pictureHost = {};  ///< of the request
};

/// The app as the search service describes it.
void writeRecord(JsonWriter& json, const SampleApp& app, const RecordView& view);

/// The record of a maker, which opens the list of a developer's apps.
void writeMakerRecord(JsonWriter& json, const Maker& maker, const SampleApp& anyApp,
                      Storefront storefront);

}  // namespace quillet::sandbox
