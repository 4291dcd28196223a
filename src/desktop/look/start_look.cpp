// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/start_look.h"

#include <QApplication>

#include "desktop/look/app_icon.h"
#include "desktop/look/focus_ring.h"
#include "desktop/look/quillet_style.h"

#ifdef __linux__
#include <fontconfig/fontconfig.h>

#include <memory>
#endif

namespace quillet {

#ifdef __linux__

namespace {

template <auto release>
struct Release {
  void operator()(auto* value) const { release(value); }
};
using FontPattern = std::unique_ptr<FcPattern, Release<FcPatternDestroy>>;
using FontSet = std::unique_ptr<FcFontSet, Release<FcFontSetDestroy>>;

// Qt draws outlines of this format with stems of its own strength.
constexpr const char* kOlderFormat = "CFF";

constexpr const char* kRejectOlder = R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig><selectfont><rejectfont>
  <pattern>
    <patelt name="family"><string>Inter</string></patelt>
    <patelt name="fontformat"><string>CFF</string></patelt>
  </pattern>
  <pattern>
    <patelt name="family"><string>Inter Display</string></patelt>
    <patelt name="fontformat"><string>CFF</string></patelt>
  </pattern>
</rejectfont></selectfont></fontconfig>)";

const FcChar8* text(const char* ascii) { return reinterpret_cast<const FcChar8*>(ascii); }

/// Whether a font named Inter is installed that has this property.
bool hasInter(const FontPattern& wanted) {
  FcPatternAddString(wanted.get(), FC_FAMILY, text("Inter"));
  FcObjectSet* const none = FcObjectSetBuild(FC_FAMILY, nullptr);
  const FontSet found(FcFontList(nullptr, wanted.get(), none));
  FcObjectSetDestroy(none);
  return found != nullptr && found->nfont > 0;
}

bool hasVariableInter() {
  const FontPattern wanted(FcPatternCreate());
  FcPatternAddBool(wanted.get(), FC_VARIABLE, FcTrue);
  return hasInter(wanted);
}

bool hasOlderInter() {
  const FontPattern wanted(FcPatternCreate());
  FcPatternAddString(wanted.get(), FC_FONTFORMAT, text(kOlderFormat));
  return hasInter(wanted);
}

}  // namespace

void chooseFonts() {
  if (FcInit() == FcFalse || !hasOlderInter() || !hasVariableInter()) return;
  FcConfig* const config = FcConfigGetCurrent();
  if (FcConfigParseAndLoadFromMemory(config, text(kRejectOlder), FcFalse) == FcTrue) {
    FcConfigBuildFonts(config);
  }
}

#else

void chooseFonts() {}

#endif

QuilletStyle& startLook(const Palette& palette, double textScale) {
  auto* style = new QuilletStyle();
  QApplication::setStyle(style);
  style->setPalette(palette);
  style->setTextScale(textScale);
  new FocusRing(*qApp);
  QApplication::setWindowIcon(applicationIcon());
  return *style;
}

}  // namespace quillet
