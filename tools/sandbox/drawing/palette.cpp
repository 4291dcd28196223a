// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/drawing/palette.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace quillet::sandbox {

namespace {

using enum Tone;

constexpr std::array kPalettes{
    Palette{"teal", vivid, 0xFF2BB5A4, 0xFF0A6A74, 0xFFFFFFFF, 0xFFEFFBF9, 0xFF9CDCD3, 0xFFFFD166,
            0xFF075660},
    Palette{"blue", vivid, 0xFF5FB2FF, 0xFF1A5FE0, 0xFFFFFFFF, 0xFFEFF6FF, 0xFFB9D9FF, 0xFFFFD166,
            0xFF1449B3},
    Palette{"sky", vivid, 0xFF7CC6F7, 0xFF2474D4, 0xFFFFFFFF, 0xFFEDF7FF, 0xFFC4E4FC, 0xFFFFE08A,
            0xFF1B5BAE},
    Palette{"indigo", vivid, 0xFF7C6BF2, 0xFF3A2BA8, 0xFFFFFFFF, 0xFFF1EFFF, 0xFFC4BBFF, 0xFFFFB86B,
            0xFF2C2085},
    Palette{"violet", vivid, 0xFFA578E8, 0xFF5E2FB0, 0xFFFFFFFF, 0xFFF6EFFF, 0xFFDCC4FA, 0xFFFFD36B,
            0xFF47228A},
    Palette{"magenta", vivid, 0xFFE879C0, 0xFF9B2A8C, 0xFFFFFFFF, 0xFFFFEFFA, 0xFFF7C0E4,
            0xFFFFE08A, 0xFF74206A},
    Palette{"pink", vivid, 0xFFFF9EC4, 0xFFE0427F, 0xFFFFFFFF, 0xFFFFF0F6, 0xFFFFD0E2, 0xFFFFF0B8,
            0xFFA82A5C},
    Palette{"rose", vivid, 0xFFF58A8A, 0xFFB83A4E, 0xFFFFFFFF, 0xFFFFF1F1, 0xFFFBC9C6, 0xFFFFE3A0,
            0xFF8E2639},
    Palette{"red", vivid, 0xFFE2574C, 0xFFA82420, 0xFFFFFFFF, 0xFFFFF1EF, 0xFFF6B9B3, 0xFFFFD98A,
            0xFF84191A},
    Palette{"coral", vivid, 0xFFFF8A70, 0xFFD13B2A, 0xFFFFFFFF, 0xFFFFF3F0, 0xFFFFCABB, 0xFFFFE7A8,
            0xFF9E2A1E},
    Palette{"orange", vivid, 0xFFFFB05C, 0xFFE8661C, 0xFFFFFFFF, 0xFFFFF6EC, 0xFFFFDDB5, 0xFFFFF3C4,
            0xFFA8460E},
    Palette{"amber", vivid, 0xFFFFD75A, 0xFFFF9E2C, 0xFFFFFFFF, 0xFFFFF8E8, 0xFFFFEBB0, 0xFFE8503A,
            0xFFA85C00},
    Palette{"lime", vivid, 0xFF9BE07A, 0xFF3A9A3A, 0xFFFFFFFF, 0xFFF2FFEC, 0xFFCFF2BC, 0xFFFFF0A0,
            0xFF27702B},
    Palette{"green", vivid, 0xFF5CCB8A, 0xFF1B8A5A, 0xFFFFFFFF, 0xFFEFFFF6, 0xFFB4EBCC, 0xFFFFE08A,
            0xFF126443},
    Palette{"moss", vivid, 0xFF8CC152, 0xFF3E7D2B, 0xFFFFFFFF, 0xFFF5FFEA, 0xFFCFE8A8, 0xFFFFE58A,
            0xFF2B5C1C},
    Palette{"aqua", vivid, 0xFF3DD6C1, 0xFF16808F, 0xFFFFFFFF, 0xFFEDFFFC, 0xFFAAEFE4, 0xFFFFE08A,
            0xFF0F6070},
    Palette{"slate", vivid, 0xFF8FA3BF, 0xFF4A5E80, 0xFFFFFFFF, 0xFFF3F6FB, 0xFFCBD7E8, 0xFFFFD98A,
            0xFF34445F},
    Palette{"steel", vivid, 0xFF7B8CA8, 0xFF3F4C66, 0xFFFFFFFF, 0xFFF2F5FA, 0xFFC2CDDF, 0xFF7FE0C3,
            0xFF2C374D},
    Palette{"dusk", vivid, 0xFFFFB26B, 0xFF8A4FC7, 0xFFFFFFFF, 0xFFFFF3EC, 0xFFF7C2B8, 0xFFFFF1CF,
            0xFF3A2A78},
    Palette{"night", dark, 0xFF2A2E38, 0xFF14161B, 0xFF5EE7FF, 0xFF8B6BFF, 0xFF424958, 0xFFFF6B6B,
            0xFF0C0D10},
    Palette{"ink", dark, 0xFF24262E, 0xFF0C0D10, 0xFFFFFFFF, 0xFFD9DEE8, 0xFF4A5060, 0xFFFFB648,
            0xFF17181D},
    Palette{"ember", dark, 0xFF343944, 0xFF15171C, 0xFFFFC06A, 0xFFF2734A, 0xFF565D6B, 0xFF5EE0C0,
            0xFF1A1C22},
    Palette{"navy", dark, 0xFF2F3B55, 0xFF151B2B, 0xFF9BE8D2, 0xFF4FC3A1, 0xFF4A5A7D, 0xFFFFD166,
            0xFF141A29},
    Palette{"forest", dark, 0xFF2C7A5B, 0xFF0E3B2C, 0xFFEFFBF4, 0xFFC4EAD6, 0xFF5FAE82, 0xFFFFD98A,
            0xFF0B3325},
    Palette{"ocean", dark, 0xFF36558F, 0xFF142547, 0xFFFFFFFF, 0xFFD6E4FF, 0xFF7FB6FF, 0xFF5EE0C0,
            0xFF101E3C},
    Palette{"plum", dark, 0xFF4A3790, 0xFF1A1242, 0xFFF7EFFF, 0xFFCDBBFF, 0xFF7A66C8, 0xFFFFB26B,
            0xFF150E38},
    Palette{"cocoa", dark, 0xFF5A4034, 0xFF2A1B14, 0xFFFBE9CF, 0xFFE6C69C, 0xFF8A6A55, 0xFFFFB648,
            0xFF21150F},
    Palette{"snow", pale, 0xFFFFFFFF, 0xFFE9EEF6, 0xFF4FA3FF, 0xFF1B5FD9, 0xFFC9DBF5, 0xFFF5B83D,
            0xFF2B3040},
    Palette{"paper", pale, 0xFFFFFDF7, 0xFFF1EADB, 0xFF34457A, 0xFF1B2750, 0xFFDCD1B9, 0xFFD8473C,
            0xFF1E2330},
    Palette{"mint", pale, 0xFFF6FBF4, 0xFFDAEED5, 0xFF56AE6E, 0xFF2F7D4F, 0xFFA5D6AD, 0xFFF5A83D,
            0xFF1F5A38},
    Palette{"blush", pale, 0xFFFFF5F3, 0xFFFADAD4, 0xFFEE6A78, 0xFFC0364C, 0xFFF3B4B0, 0xFF5B8DEF,
            0xFF6E1F30},
    Palette{"lilac", pale, 0xFFF6ECFC, 0xFFDDC6F2, 0xFF9A5FE0, 0xFF5C2A99, 0xFFC6A3E8, 0xFF5FAE5B,
            0xFF43207A},
    Palette{"sand", pale, 0xFFF6E7CF, 0xFFD9B98A, 0xFF8A5A34, 0xFF5F3A1E, 0xFFC29A66, 0xFFD9472F,
            0xFF3F2714},
    Palette{"cream", pale, 0xFFFFF6E6, 0xFFFFE3BC, 0xFFF2734A, 0xFFD9541F, 0xFFF9C79A, 0xFF22304F,
            0xFF4E2410},
    Palette{"ice", pale, 0xFFE9F3FF, 0xFFCFE3FB, 0xFF3B82E0, 0xFF1B4FA8, 0xFF8DBEF5, 0xFFFFB84D,
            0xFF123A80},
    Palette{"pearl", pale, 0xFFFFFFFF, 0xFFECEEF3, 0xFF6B7482, 0xFF353B47, 0xFFCBD0DA, 0xFFF2734A,
            0xFF22262F},
};

}  // namespace

std::span<const Palette> palettes() { return kPalettes; }

const Palette& paletteNamed(std::string_view name) {
  const auto found = std::ranges::find(kPalettes, name, &Palette::name);
  if (found == kPalettes.end()) throw std::out_of_range("no palette " + std::string(name));
  return *found;
}

}  // namespace quillet::sandbox
