// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/drawing/icon_design.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/text.h"

namespace quillet::sandbox {

namespace {

using enum Backdrop;

/// An icon for one app alone, whose name begins so.
struct Signature {
  std::string_view name;
  std::string_view motif;
  std::string_view palette;
  Backdrop backdrop = plain;
};

constexpr std::array kSignatures{
    Signature{"Quillink", "feather", "indigo"},
    Signature{"Draftlark", "pencil", "cream"},
    Signature{"Nibforge", "nib", "ember"},
    Signature{"Pagewren", "bird", "teal"},
    Signature{"Inkfallow", "drop", "paper"},
    Signature{"Typebarn", "barn", "red"},
    Signature{"Mossy Markdown", "marked", "moss"},
    Signature{"Notewhistle", "list", "blue", sheen},
    Signature{"Stackleaf", "leaves", "mint"},
    Signature{"Jotbarrow", "notepad", "cream"},
    Signature{"Fernotes", "leaf", "green", disc},
    Signature{"Feedthistle", "feed", "violet"},
    Signature{"Riverrook", "waves", "ice"},
    Signature{"Dailysift", "news", "coral", sheen},
    Signature{"Barnowl", "owl", "sand"},
    Signature{"Lumenfjord", "mountains", "dusk"},
    Signature{"Rawmeadow", "meadow", "moss"},
    Signature{"Grainharbor", "lighthouse", "teal"},
    Signature{"Photo Sorter Plum", "polaroids", "plum", glow},
    Signature{"Darkbothy", "half", "ink"},
    Signature{"Cutoutling", "scissors", "pink", rings},
    Signature{"Pixelbramble", "flower", "magenta", glow},
    Signature{"Shutterfen", "lens", "slate"},
    Signature{"Frameglade", "frame", "green", hills},
    Signature{"Taskheron", "check", "snow"},
    Signature{"Ledgerkite", "curve", "navy"},
    Signature{"Mailbarge", "envelope", "blue"},
    Signature{"Calendrake", "calendar", "snow"},
    Signature{"Vaultwillow", "shield", "forest"},
    Signature{"Clipmoss", "clipboard", "mint"},
    Signature{"Zipgarner", "archive", "amber", sheen},
    Signature{"Brackethorn", "braces", "night"},
    Signature{"Diffwicket", "diff", "ink"},
    Signature{"Portlamp", "port", "ink", glow},
    Signature{"Queryberry", "berries", "lilac"},
    Signature{"Systemwright", "gear", "slate"},
    Signature{"Dungeon", "lantern", "forest"},
    Signature{"Marble Moat", "marble", "violet"},
    Signature{"Starling Runner", "starling", "sky", hills},
    Signature{"Chess Barn", "pawn", "sand"},
    Signature{"Chordbadger", "badger", "cocoa"},
    Signature{"Tempo Thicket", "metronome", "forest", glow},
    Signature{"Walkmeadow", "trail", "lime"},
    Signature{"Sleepcairn", "moon", "plum"},
    Signature{"Recipe Rook", "rook", "coral"},
    Signature{"Cloudgauge", "gauge", "sky"},
    Signature{"Trainsparrow", "train", "red", sheen},
    Signature{"Kids' Number Barn", "sums", "snow"},
    Signature{"メモの庭", "leaf", "mint"},
    Signature{"写真の引き出し", "frame", "cocoa", glow},
    Signature{"دفتر", "scroll", "sand"},
    Signature{"Écrivailleur", "serif", "paper"},
    Signature{"🎨", "otter", "cream"},
    Signature{"Leaflet 10", "bookmark", "lilac"},
    Signature{"leaflet 2", "book", "mint"},
    Signature{"X", "angles", "ink"},
};

/// What an app shows that has the word in its name, one of several.
struct Words {
  std::string_view word;
  std::string_view motifs;
};

constexpr std::array kWords{
    Words{"markdown", "marked hash feather quotes"},
    Words{"mind map", "mind"},
    Words{"to-do", "tick check list"},
    Words{"checklist", "tick list"},
    Words{"shopping list", "bag list"},
    Words{"packing", "suitcase"},
    Words{"movie", "clapper ticket"},
    Words{"wish", "gift star"},
    Words{"calendar", "month calendar"},
    Words{"clipboard", "clip clipboard"},
    Words{"pdf", "sheet scanner"},
    Words{"focus", "timer hourglass"},
    Words{"coffee", "cup"},
    Words{"timer", "timer hourglass clock"},
    Words{"time sheet", "clock"},
    Words{"notes", "notepad scroll sheet feather quotes"},
    Words{"rss", "feed"},
    Words{"podcast", "microphone headphones"},
    Words{"headlines", "news"},
    Words{"news", "news"},
    Words{"book", "shelf bookmark book"},
    Words{"reader", "book eye bookmark"},
    Words{"story", "castle star moon"},
    Words{"comic", "bubbles"},
    Words{"library", "shelf bookmark"},
    Words{"invoice", "receipt"},
    Words{"team", "board people"},
    Words{"crm", "people"},
    Words{"meeting", "people microphone"},
    Words{"scanner", "scanner"},
    Words{"code editor", "braces angles"},
    Words{"terminal", "prompt"},
    Words{"api", "dart bolt"},
    Words{"log viewer", "list prompt"},
    Words{"database", "discs table"},
    Words{"json", "braces"},
    Words{"flashcards", "cards bookmark"},
    Words{"vocabulary", "letters translate"},
    Words{"math", "sums"},
    Words{"planetarium", "planet"},
    Words{"typing", "keyboard typewriter"},
    Words{"video player", "play"},
    Words{"video cutter", "clapper scissors"},
    Words{"trivia", "bubbles star"},
    Words{"sticker", "face"},
    Words{"party", "gift die"},
    Words{"budget", "wallet pie coin"},
    Words{"expenses", "wallet receipt"},
    Words{"stock", "curve chart"},
    Words{"bills", "receipt"},
    Words{"currency", "coin"},
    Words{"net worth", "pie curve"},
    Words{"recipe", "pot cutlery cherries"},
    Words{"wine", "wine"},
    Words{"meal", "cutlery cherries pot"},
    Words{"puzzle", "puzzle blocks"},
    Words{"solitaire", "cards"},
    Words{"racer", "wheel trophy"},
    Words{"quest", "sword lantern"},
    Words{"word game", "tiles crossword letters"},
    Words{"tower", "castle blocks"},
    Words{"farm", "wheat meadow"},
    Words{"chess", "pawn rook"},
    Words{"icon maker", "grid palette"},
    Words{"vector", "node"},
    Words{"colour", "segments circles palette"},
    Words{"font", "letters serif"},
    Words{"sketch", "brush pencil"},
    Words{"mockup", "tiles windows"},
    Words{"workout", "dumbbell"},
    Words{"step", "rings"},
    Words{"sleep", "moon"},
    Words{"yoga", "lotus"},
    Words{"water", "glass drop"},
    Words{"fasting", "clock rings"},
    Words{"journal", "bookmark feather"},
    Words{"habit", "dots rings"},
    Words{"inventory", "house sofa parcel"},
    Words{"astrology", "star moon planet"},
    Words{"kiosk", "news bookmark"},
    Words{"magazine", "news bookmark"},
    Words{"crossword", "crossword"},
    Words{"blood", "heart"},
    Words{"pill", "pill"},
    Words{"anatomy", "heart cross"},
    Words{"symptom", "cross thermometer"},
    Words{"metronome", "metronome"},
    Words{"tuner", "fork"},
    Words{"synth", "keys knob"},
    Words{"music", "notes headphones"},
    Words{"drum", "pads"},
    Words{"lyrics", "notes quotes microphone"},
    Words{"map", "map pin"},
    Words{"compass", "compass"},
    Words{"trail", "trail peaks"},
    Words{"parking", "parking pin"},
    Words{"gps", "pin map"},
    Words{"photo editor", "mountains lens sunrise"},
    Words{"photo", "frame polaroids lens"},
    Words{"camera", "camera lens"},
    Words{"collage", "tiles polaroids"},
    Words{"slideshow", "play frame"},
    Words{"dictionary", "bookmark letters"},
    Words{"translator", "translate"},
    Words{"encyclopedia", "globe book"},
    Words{"periodic", "atom"},
    Words{"thesaurus", "quotes letters"},
    Words{"price watch", "tag"},
    Words{"coupon", "scissors ticket tag"},
    Words{"parcel", "parcel"},
    Words{"chat", "chat bubbles"},
    Words{"messenger", "bubbles dart"},
    Words{"friends", "people hearts"},
    Words{"community", "people"},
    Words{"dating", "hearts flame"},
    Words{"scoreboard", "score"},
    Words{"golf", "flag"},
    Words{"football", "ball"},
    Words{"ski", "peaks"},
    Words{"running", "rings bolt"},
    Words{"trip", "suitcase globe"},
    Words{"train", "train"},
    Words{"city", "pin map"},
    Words{"flight", "airplane"},
    Words{"file", "folder"},
    Words{"battery", "battery"},
    Words{"window", "windows"},
    Words{"cleaner", "sparkle"},
    Words{"calculator", "calculator sums"},
    Words{"archive", "archive"},
    Words{"vpn", "shield lock key"},
    Words{"disk", "pie segments"},
    Words{"rain", "radar rain umbrella"},
    Words{"forecast", "cloud sunrise"},
    Words{"tides", "tide waves boat"},
    Words{"barometer", "gauge thermometer"},
    Words{"weather", "cloud sun rain"},
    Words{"mail", "letter envelope"},
    Words{"editor", "sheet feather"},
};

struct GenreMotifs {
  int genre;
  std::string_view motifs;
};

constexpr std::array kGenres{
    GenreMotifs{6000, "chart board sheet people"},
    GenreMotifs{6001, "cloud sun rain thermometer umbrella"},
    GenreMotifs{6002, "switches gear grid bolt sparkle fish cube"},
    GenreMotifs{6003, "airplane suitcase globe boat"},
    GenreMotifs{6004, "ball trophy flag score"},
    GenreMotifs{6005, "chat bubbles people hearts"},
    GenreMotifs{6006, "book globe letters"},
    GenreMotifs{6007, "feather tick hash month drop leaf"},
    GenreMotifs{6008, "lens frame rainbow peaks"},
    GenreMotifs{6009, "news feed quotes"},
    GenreMotifs{6010, "pin map compass"},
    GenreMotifs{6011, "notes wave knob headphones"},
    GenreMotifs{6012, "house leaf cup gift lotus"},
    GenreMotifs{6013, "rings lotus flame dumbbell"},
    GenreMotifs{6014, "castle die puzzle sword fish marble blocks"},
    GenreMotifs{6015, "coin pie curve wallet"},
    GenreMotifs{6016, "ticket face star play"},
    GenreMotifs{6017, "cap atom planet letters"},
    GenreMotifs{6018, "book shelf bookmark"},
    GenreMotifs{6020, "cross heart pill"},
    GenreMotifs{6021, "news bookmark crossword"},
    GenreMotifs{6023, "pot cup cutlery cherries"},
    GenreMotifs{6024, "bag tag parcel"},
    GenreMotifs{6026, "braces angles prompt cube discs"},
    GenreMotifs{6027, "palette brush node circles"},
};

/// The palettes that a motif is at home on; others take any of the tones that suit them.
struct Home {
  std::string_view motif;
  std::string_view palettes;
};

constexpr std::array kHomes{
    Home{"sun", "amber orange sky coral"},
    Home{"sunrise", "orange coral navy indigo teal"},
    Home{"cloud", "sky blue indigo aqua"},
    Home{"rain", "blue sky slate ocean"},
    Home{"gauge", "sky blue aqua slate"},
    Home{"thermometer", "snow orange coral slate"},
    Home{"umbrella", "blue violet aqua coral"},
    Home{"tide", "teal blue aqua"},
    Home{"radar", "ocean night forest navy"},
    Home{"waves", "ice snow mint"},
    Home{"mountains", "dusk sky teal indigo rose"},
    Home{"meadow", "moss green sky amber"},
    Home{"trail", "moss green orange teal"},
    Home{"boat", "sky ice blue teal"},
    Home{"lighthouse", "teal blue coral indigo"},
    Home{"fish", "blue aqua coral ice teal"},
    Home{"leaf", "green moss mint lime forest"},
    Home{"tree", "green moss mint forest"},
    Home{"wheat", "moss cocoa green lime"},
    Home{"cherries", "red rose mint cream"},
    Home{"flame", "ember orange red"},
    Home{"lotus", "pink magenta lilac plum teal"},
    Home{"flower", "pink coral violet teal"},
    Home{"berries", "lilac blush"},
    Home{"heart", "rose red pink coral"},
    Home{"hearts", "blush lilac"},
    Home{"cross", "teal rose blush green"},
    Home{"pill", "blush snow ice"},
    Home{"glass", "blue sky aqua ocean"},
    Home{"wine", "plum rose sand magenta"},
    Home{"cup", "cocoa sand orange teal coral"},
    Home{"pot", "coral snow cream teal orange"},
    Home{"parcel", "sand cream"},
    Home{"planet", "plum night ocean"},
    Home{"moon", "plum ocean night navy"},
    Home{"pawn", "sand paper"},
    Home{"rook", "coral slate teal indigo"},
    Home{"coin", "green teal navy ocean"},
    Home{"wallet", "green cocoa steel indigo orange"},
    Home{"owl", "sand lilac"},
    Home{"leaves", "mint ice cream"},
    Home{"shelf", "sand paper cream"},
    Home{"calendar", "snow pearl"},
    Home{"check", "snow mint lilac"},
    Home{"circles", "snow paper pearl"},
    Home{"segments", "snow pearl ice"},
    Home{"rainbow", "snow ice cream"},
    Home{"sums", "snow"},
    Home{"lantern", "forest navy"},
    Home{"braces", "night ink navy ember plum"},
    Home{"prompt", "ink night ember navy"},
    Home{"discs", "ocean indigo slate steel teal"},
    Home{"gear", "slate steel pearl ink"},
    Home{"feed", "orange violet blue teal"},
    Home{"letter", "blue sky red snow"},
    Home{"folder", "blue sky amber teal"},
    Home{"lens", "slate teal ink indigo"},
    Home{"camera", "slate ink coral teal pearl"},
    Home{"ball", "green moss lime slate"},
    Home{"flag", "green moss sky mint"},
    Home{"suitcase", "cocoa teal orange sand"},
    Home{"train", "red blue green navy"},
    Home{"map", "green sky sand mint"},
    Home{"peaks", "sky ice indigo slate"},
    Home{"face", "violet magenta sky teal"},
    Home{"sofa", "teal rose sand indigo"},
};

std::string_view motifsForWords(std::string_view text) {
  const std::string lower = lowerAscii(text);
  const auto row = std::ranges::find_if(
      kWords, [&](const Words& each) { return lower.find(each.word) != std::string::npos; });
  return row == kWords.end() ? std::string_view() : row->motifs;
}

std::string_view motifsFor(const Subject& subject) {
  for (const std::string_view text :
       {std::string_view(subject.name), std::string_view(subject.about)}) {
    if (const std::string_view motifs = motifsForWords(text); !motifs.empty()) return motifs;
  }
  const auto row = std::ranges::find(kGenres, subject.genre, &GenreMotifs::genre);
  return row == kGenres.end() ? "star hash cube" : row->motifs;
}

/// Parts of the key that have nothing to do with one another.
std::size_t part(std::uint64_t key, unsigned which) {
  return static_cast<std::size_t>(key >> (which * 12U) & 0xFFFU);
}

const Palette& paletteFor(const Motif& motif, std::uint64_t key) {
  const auto home = std::ranges::find(kHomes, motif.name, &Home::motif);
  if (home != kHomes.end()) {
    const auto names = split(home->palettes, ' ');
    return paletteNamed(names[part(key, 1) % names.size()]);
  }
  std::vector<const Palette*> fitting;
  for (const Palette& palette : palettes()) {
    if ((motif.tones & static_cast<unsigned>(palette.tone)) != 0) fitting.push_back(&palette);
  }
  return *fitting[part(key, 1) % fitting.size()];
}

/// Coloured grounds are enlivened, light ones are left alone.
Backdrop backdropFor(const Palette& palette, std::uint64_t key) {
  constexpr std::array kOnColour{plain, plain, plain, hills, disc, glow, sheen, rings};
  constexpr std::array kOnDark{plain, plain, glow};
  switch (palette.tone) {
    case Tone::vivid: return kOnColour[part(key, 2) % kOnColour.size()];
    case Tone::dark: return kOnDark[part(key, 2) % kOnDark.size()];
    case Tone::pale: break;
  }
  return plain;
}

}  // namespace

IconDesign designOf(const Subject& subject) {
  const auto own = std::ranges::find_if(kSignatures, [&](const Signature& signature) {
    return subject.name.starts_with(signature.name) &&
           (signature.name.size() > 1 || subject.name.size() == 1);
  });
  if (own != kSignatures.end())
    return {&motifNamed(own->motif), &paletteNamed(own->palette), own->backdrop};
  const auto choices = split(motifsFor(subject), ' ');
  const Motif& motif = motifNamed(choices[part(subject.key, 0) % choices.size()]);
  const Palette& palette = paletteFor(motif, subject.key);
  return {&motif, &palette, backdropFor(palette, subject.key)};
}

}  // namespace quillet::sandbox
