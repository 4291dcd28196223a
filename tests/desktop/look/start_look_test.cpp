// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/start_look.h"

#include <fontconfig/fontconfig.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>

#include "desktop/look/quillet_style.h"

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;

// A whole font of the format "CFF" without a file format around it: one letter, and its family's
// name twice, which is "Inter".
const QByteArray kOlderFont = QByteArray::fromHex(
    "01000401"
    "0001010106496e746572"
    "000101011e1d00000187031d0000003c0f1d0000003f111d000000001d0000005612"
    "0001010106496e746572"
    "0000"
    "000022"
    "0002010102120e8b8b151c01f4061c02bc071cfe0c060e");
constexpr const char* kVariableFonts = "/usr/share/fonts/truetype/inter-vf";

/// Makes fonts of these folders the only ones as long as it lives.
class Fonts {
 public:
  explicit Fonts(const QStringList& folders) : before_(FcConfigReference(nullptr)) {
    QString text = u"<?xml version=\"1.0\"?><fontconfig>"_s;
    for (const QString& folder : folders) text += u"<dir>"_s + folder + u"</dir>"_s;
    text += u"<cachedir>"_s + cache_.path() + u"</cachedir></fontconfig>"_s;
    FcConfig* config = FcConfigCreate();
    FcConfigParseAndLoadFromMemory(config, asText(text.toUtf8()), FcTrue);
    FcConfigBuildFonts(config);
    FcConfigSetCurrent(config);
    FcConfigDestroy(config);  // the current one is kept
  }
  ~Fonts() {
    FcConfigSetCurrent(before_);
    FcConfigDestroy(before_);
  }
  Fonts(const Fonts&) = delete;
  Fonts& operator=(const Fonts&) = delete;

  /// The formats of the installed fonts.
  [[nodiscard]] static QSet<QByteArray> formats() {
    FcPattern* all = FcPatternCreate();
    FcObjectSet* wanted = FcObjectSetBuild(FC_FONTFORMAT, nullptr);
    FcFontSet* found = FcFontList(nullptr, all, wanted);
    QSet<QByteArray> formats;
    for (int i = 0; i < found->nfont; ++i) {
      FcChar8* format = nullptr;
      FcPatternGetString(found->fonts[i], FC_FONTFORMAT, 0, &format);
      formats.insert(QByteArray(reinterpret_cast<const char*>(format)));
    }
    FcFontSetDestroy(found);
    FcObjectSetDestroy(wanted);
    FcPatternDestroy(all);
    return formats;
  }

 private:
  static const FcChar8* asText(const QByteArray& text) {
    return reinterpret_cast<const FcChar8*>(text.constData());
  }

  QTemporaryDir cache_;
  FcConfig* before_;
};

TEST(StartLookTest, LeavesTheOlderInterOutOnlyBesideTheVariableOne) {
  const QTemporaryDir older;
  QFile file(older.filePath(u"Inter.cff"_s));
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  file.write(kOlderFont);
  file.close();
  const QString variable = QString::fromLatin1(kVariableFonts);
  struct {
    QStringList folders;
    QSet<QByteArray> before;
    QSet<QByteArray> after;
  } const rows[] = {
      {{variable, older.path()}, {"TrueType", "CFF"}, {"TrueType"}},
      {{older.path()}, {"CFF"}, {"CFF"}},
      {{variable}, {"TrueType"}, {"TrueType"}},
      {{}, {}, {}},
  };
  for (const auto& row : rows) {
    const Fonts fonts(row.folders);
    EXPECT_EQ(Fonts::formats(), row.before) << row.folders.join(u' ').toStdString();
    chooseFonts();
    EXPECT_EQ(Fonts::formats(), row.after) << row.folders.join(u' ').toStdString();
  }
}

void setTextScale(double scale) {
  qobject_cast<QuilletStyle*>(QApplication::style())->setTextScale(scale);
  QCoreApplication::sendPostedEvents();
}

TEST(StartLookTest, ScalesTheTextsOfControlsAndFields) {
  QPushButton button(u"Add to Collection"_s);
  const int width = button.sizeHint().width();
  const int pixels = button.font().pixelSize();
  setTextScale(2);
  EXPECT_GT(button.sizeHint().width(), width * 1.5);
  EXPECT_EQ(button.font().pixelSize(), 2 * pixels);
  setTextScale(1);
  EXPECT_EQ(button.sizeHint().width(), width);
  EXPECT_EQ(button.font().pixelSize(), pixels);
}

}  // namespace
}  // namespace quillet
