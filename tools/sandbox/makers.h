// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "sandbox/sample_app.h"

/// The invented people and companies behind the hand-written apps.
namespace quillet::sandbox::makers {

inline Maker amberfield() {
  return {1480068001, "Amberfield Software GmbH", "Amberfield", "https://amberfield.example"};
}
inline Maker tomLarkin() {
  return {512300417, "Tomas Larkendahl", "Tomas Larkendahl", "https://larkendahl.example/apps"};
}
inline Maker northLantern() {
  return {933400128, "North Lantern Collective, LLC", "North Lantern",
          "https://northlantern.example"};
}
inline Maker rookAndReed() {
  return {409183001, "Rook & Reed Ltd", "Rook & Reed", "https://rookandreed.example"};
}
inline Maker pixelOrchard() {
  return {824183001, "Pixel Orchard, Inc.", "Pixel Orchard", "https://pixelorchard.example"};
}
inline Maker inesQuintal() { return {1066120945, "Inês Quintalhão", "Inês Quintalhão", ""}; }
inline Maker copperMill() {
  return {701900233, "Coppermill Games Oy", "Coppermill Games", "https://coppermill.example"};
}
inline Maker hazelworks() {
  return {1289583001, "Hazelworks Studio B.V.", "Hazelworks", "https://hazelworks.example"};
}
inline Maker mizuno() {
  return {998812345, "水野沢アプリ工房", "水野沢アプリ工房", "https://mizunosawa.example"};
}
inline Maker daftar() { return {1344556677, "شركة دفتر الواحة", "دفتر الواحة", ""}; }

}  // namespace quillet::sandbox::makers
