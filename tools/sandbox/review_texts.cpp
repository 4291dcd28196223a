// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/review_texts.h"

#include <array>

namespace quillet::sandbox {

namespace {

using Text = std::string_view;

enum class Language { en, de, fr, ja, it, es, nl };

constexpr auto kEnBadTitles = std::to_array<Text>(
    {"Crashes on launch", "Not what it was", "Lost my work", "Too expensive now",
     "Support is silent", "Back to pen and paper", "Slow, slow, slow"});
constexpr auto kEnBad = std::to_array<Text>(
    {"Since the last update {} closes by itself as soon as I open anything large.",
     "I paid for this years ago and now the half of it is locked.",
     "Wrote to the makers twice and heard nothing.", "Sync ate two days of entries.",
     "It uses more battery than everything else together.",
     "The window forgets its place every single time.",
     "I want to like {}, but it does not let me."});
constexpr auto kEnFairTitles =
    std::to_array<Text>({"Good, with rough edges", "Nearly there", "Fine for the price",
                         "Does the job", "Mixed feelings"});
constexpr auto kEnFair =
    std::to_array<Text>({"{} does what it says, only the settings are a maze.",
                         "Fine on the big screen, cramped on the small one.",
                         "Please bring back the old tool bar!", "Search could be quicker.",
                         "Import works, export less so.", "Three stars until printing is fixed."});
constexpr auto kEnGoodTitles = std::to_array<Text>(
    {"A little gem", "Use it every day", "Exactly what I needed 🎉", "Finally", "Worth every cent",
     "Quiet and quick", "My desk without it? No.", "Five stars from the whole family"});
constexpr auto kEnGood = std::to_array<Text>(
    {"I have tried a dozen of these, and {} is the one that stayed.",
     "Opens at once and gets out of the way.", "The shortcuts are a joy.",
     "Had a question, got a friendly answer within a day.",
     "No account, no fuss, no advertisements.", "My daughter (8) found her way without help. 👍",
     "Even better since the last update.", "“Undo” that really undoes: thank you."});

constexpr auto kDeBadTitles = std::to_array<Text>({"Stürzt ab", "Früher war es besser"});
constexpr auto kDeBad =
    std::to_array<Text>({"Seit dem letzten Update öffnet {} keine größeren Dateien mehr.",
                         "Der Kundendienst antwortet nicht.", "Für das Gebotene zu teuer."});
constexpr auto kDeFairTitles = std::to_array<Text>({"Ganz in Ordnung", "Mit Abstrichen"});
constexpr auto kDeFair = std::to_array<Text>(
    {"{} tut, was es soll, ist aber etwas umständlich.", "Die Übersetzung könnte besser sein."});
constexpr auto kDeGoodTitles = std::to_array<Text>({"Großartig", "Täglich im Einsatz", "Endlich!"});
constexpr auto kDeGood =
    std::to_array<Text>({"Genau so etwas habe ich gesucht.", "{} ist schnell, schlicht und schön.",
                         "Läuft seit Jahren ohne Ärger."});

constexpr auto kFrBadTitles = std::to_array<Text>({"Plante sans cesse", "Déçue"});
constexpr auto kFrBad = std::to_array<Text>(
    {"{} se ferme dès que j'ouvre un document.", "Bien trop cher pour ce que c'est."});
constexpr auto kFrFairTitles = std::to_array<Text>({"Peut mieux faire", "Correct"});
constexpr auto kFrFair =
    std::to_array<Text>({"L'idée est bonne, la traduction moins.", "{} dépanne, sans plus."});
constexpr auto kFrGoodTitles = std::to_array<Text>({"Un régal", "Indispensable", "Bravo !"});
constexpr auto kFrGood = std::to_array<Text>(
    {"J'utilise {} tous les jours.", "Simple, rapide, élégant.", "Une vraie trouvaille."});

constexpr auto kJaBadTitles = std::to_array<Text>({"すぐ落ちます", "残念"});
constexpr auto kJaBad = std::to_array<Text>(
    {"更新してから{}が開けなくなりました。", "問い合わせても返事がありません。"});
constexpr auto kJaFairTitles = std::to_array<Text>({"まあまあ", "あと一歩"});
constexpr auto kJaFair = std::to_array<Text>({"{}は便利ですが、設定が分かりにくいです。"});
constexpr auto kJaGoodTitles = std::to_array<Text>({"最高です", "毎日使っています"});
constexpr auto kJaGood =
    std::to_array<Text>({"{}のおかげで仕事が早くなりました。", "軽くて使いやすいです。"});

constexpr auto kItBadTitles = std::to_array<Text>({"Si blocca", "Delusione"});
constexpr auto kItBad = std::to_array<Text>(
    {"Dopo l'aggiornamento {} non si apre più.", "Troppo caro per quello che offre."});
constexpr auto kItFairTitles = std::to_array<Text>({"Così così"});
constexpr auto kItFair = std::to_array<Text>({"{} funziona, ma è un po' lento."});
constexpr auto kItGoodTitles = std::to_array<Text>({"Ottimo", "Non posso farne a meno"});
constexpr auto kItGood =
    std::to_array<Text>({"Uso {} ogni giorno.", "Semplice e veloce, complimenti."});

constexpr auto kEsBadTitles = std::to_array<Text>({"Se cierra sola", "Mala experiencia"});
constexpr auto kEsBad = std::to_array<Text>(
    {"Desde la última versión {} no arranca.", "¿Y el soporte? Nadie contesta."});
constexpr auto kEsFairTitles = std::to_array<Text>({"Regular"});
constexpr auto kEsFair = std::to_array<Text>({"{} cumple, pero le faltan detalles."});
constexpr auto kEsGoodTitles = std::to_array<Text>({"¡Estupenda!", "Muy útil"});
constexpr auto kEsGood =
    std::to_array<Text>({"{} me ahorra horas cada semana.", "Rápida y sin complicaciones."});

constexpr auto kNlBadTitles = std::to_array<Text>({"Loopt vast", "Jammer"});
constexpr auto kNlBad =
    std::to_array<Text>({"Sinds de update start {} niet meer.", "Veel te duur geworden."});
constexpr auto kNlFairTitles = std::to_array<Text>({"Aardig"});
constexpr auto kNlFair = std::to_array<Text>({"{} is handig, maar traag."});
constexpr auto kNlGoodTitles = std::to_array<Text>({"Fijne app", "Dagelijks in gebruik"});
constexpr auto kNlGood =
    std::to_array<Text>({"{} doet precies wat ik zocht.", "Snel en eenvoudig."});

// By language, then by mood.
constexpr std::array<std::array<ReviewWords, 3>, 7> kWords{{
    {{{kEnBadTitles, kEnBad}, {kEnFairTitles, kEnFair}, {kEnGoodTitles, kEnGood}}},
    {{{kDeBadTitles, kDeBad}, {kDeFairTitles, kDeFair}, {kDeGoodTitles, kDeGood}}},
    {{{kFrBadTitles, kFrBad}, {kFrFairTitles, kFrFair}, {kFrGoodTitles, kFrGood}}},
    {{{kJaBadTitles, kJaBad}, {kJaFairTitles, kJaFair}, {kJaGoodTitles, kJaGood}}},
    {{{kItBadTitles, kItBad}, {kItFairTitles, kItFair}, {kItGoodTitles, kItGood}}},
    {{{kEsBadTitles, kEsBad}, {kEsFairTitles, kEsFair}, {kEsGoodTitles, kEsGood}}},
    {{{kNlBadTitles, kNlBad}, {kNlFairTitles, kNlFair}, {kNlGoodTitles, kNlGood}}},
}};

// By storefront.
constexpr std::array<Language, kStorefrontCount> kLanguages{
    Language::en, Language::en, Language::de, Language::fr, Language::en,
    Language::en, Language::ja, Language::it, Language::es, Language::nl};

constexpr auto kThanks = std::to_array<Text>(
    {"Thank you! Letters like yours keep us going.", "That made our day. Thank you!"});
constexpr auto kSorry = std::to_array<Text>(
    {"We are sorry about that. The cause is found, and the next version will mend it.",
     "Please write to us from the help menu, so that we can look into it with you.",
     "This should be over with the newest version. If it is not, please tell us."});

}  // namespace

Mood moodOf(int stars) {
  if (stars == 3) return Mood::fair;
  return stars < 3 ? Mood::bad : Mood::good;
}

ReviewWords reviewWords(Storefront storefront, Mood mood) {
  const auto language = kLanguages[static_cast<std::size_t>(storefront)];
  return kWords[static_cast<std::size_t>(language)][static_cast<std::size_t>(mood)];
}

std::string replyText(int stars, std::string_view maker, Random& random) {
  const Text text = stars < 4 ? random.pick(kSorry) : random.pick(kThanks);
  return fmt::format("{}\n\n{}", text, maker);
}

}  // namespace quillet::sandbox
