// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/generator_words.h"

#include <array>

namespace quillet::sandbox {

namespace {

using Word = std::string_view;

constexpr auto kKinds6018 =
    std::to_array<Word>({"Book Shelf", "Reader", "Story Teller", "Comic Viewer", "Library"});
constexpr auto kKinds6000 = std::to_array<Word>(
    {"Invoices", "Team Board", "CRM", "Meeting Minutes", "Scanner", "Time Sheet"});
constexpr auto kKinds6026 = std::to_array<Word>(
    {"Code Editor", "Terminal", "API Tester", "Log Viewer", "Database Client", "JSON Viewer"});
constexpr auto kKinds6017 = std::to_array<Word>(
    {"Flashcards", "Vocabulary", "Math Trainer", "Planetarium", "Typing Tutor"});
constexpr auto kKinds6016 =
    std::to_array<Word>({"Video Player", "Trivia", "Movie List", "Sticker Maker", "Party Cards"});
constexpr auto kKinds6015 = std::to_array<Word>(
    {"Budget", "Expenses", "Stock Watch", "Bills", "Currency Converter", "Net Worth"});
constexpr auto kKinds6023 =
    std::to_array<Word>({"Recipes", "Wine Cellar", "Meal Planner", "Coffee Timer"});
constexpr auto kKinds6014 = std::to_array<Word>(
    {"Puzzle", "Solitaire", "Racer", "Quest", "Word Game", "Tower", "Farm", "Chess"});
constexpr auto kKinds6027 = std::to_array<Word>(
    {"Icon Maker", "Vector Drawing", "Colour Picker", "Font Viewer", "Sketch Pad", "Mockups"});
constexpr auto kKinds6013 = std::to_array<Word>(
    {"Workout", "Step Counter", "Sleep Log", "Yoga", "Water Reminder", "Fasting"});
constexpr auto kKinds6012 =
    std::to_array<Word>({"Journal", "Habit Tracker", "Wish List", "Home Inventory", "Astrology"});
constexpr auto kKinds6021 =
    std::to_array<Word>({"Kiosk", "Magazine Reader", "Crossword Weekly", "Newsstand"});
constexpr auto kKinds6020 =
    std::to_array<Word>({"Blood Pressure", "Pill Reminder", "Anatomy", "Symptom Diary"});
constexpr auto kKinds6011 =
    std::to_array<Word>({"Metronome", "Tuner", "Synth", "Music Player", "Drum Machine", "Lyrics"});
constexpr auto kKinds6010 =
    std::to_array<Word>({"Map", "Compass", "Trail Finder", "Parking Spot", "GPS Logger"});
constexpr auto kKinds6009 = std::to_array<Word>({"RSS Reader", "News", "Headlines", "Podcasts"});
constexpr auto kKinds6008 =
    std::to_array<Word>({"Photo Editor", "Photo Viewer", "Camera", "Video Cutter", "Collage",
                         "Photo Frames", "Slideshow"});
constexpr auto kKinds6007 =
    std::to_array<Word>({"Notes", "To-Do List", "Markdown Editor", "Calendar", "Mind Map",
                         "Clipboard", "PDF Editor", "Focus Timer"});
constexpr auto kKinds6006 = std::to_array<Word>(
    {"Dictionary", "Translator", "Encyclopedia", "Periodic Table", "Thesaurus"});
constexpr auto kKinds6024 =
    std::to_array<Word>({"Shopping List", "Price Watch", "Coupons", "Parcel Tracker"});
constexpr auto kKinds6005 =
    std::to_array<Word>({"Chat", "Messenger", "Friends", "Community", "Dating"});
constexpr auto kKinds6004 =
    std::to_array<Word>({"Scoreboard", "Golf Card", "Football Live", "Ski Log", "Running Coach"});
constexpr auto kKinds6003 = std::to_array<Word>(
    {"Trip Planner", "Packing List", "Train Times", "City Guide", "Flight Board"});
constexpr auto kKinds6002 =
    std::to_array<Word>({"File Manager", "Battery Monitor", "Window Manager", "Cleaner",
                         "Calculator", "Archiver", "VPN", "Disk Map"});
constexpr auto kKinds6001 =
    std::to_array<Word>({"Weather", "Rain Radar", "Forecast", "Tides", "Barometer"});

constexpr auto kGenreWords = std::to_array<GenreWords>(
    {{6018, kKinds6018}, {6000, kKinds6000}, {6026, kKinds6026}, {6017, kKinds6017},
     {6016, kKinds6016}, {6015, kKinds6015}, {6023, kKinds6023}, {6014, kKinds6014},
     {6027, kKinds6027}, {6013, kKinds6013}, {6012, kKinds6012}, {6021, kKinds6021},
     {6020, kKinds6020}, {6011, kKinds6011}, {6010, kKinds6010}, {6009, kKinds6009},
     {6008, kKinds6008}, {6007, kKinds6007}, {6006, kKinds6006}, {6024, kKinds6024},
     {6005, kKinds6005}, {6004, kKinds6004}, {6003, kKinds6003}, {6002, kKinds6002},
     {6001, kKinds6001}});

constexpr auto kAdjectives = std::to_array<Word>(
    {"Tidy",     "Simple", "Quiet", "Swift",  "Tiny",    "Clever", "Bright",  "Plain",
     "Honest",   "Gentle", "Rapid", "Little", "Smart",   "Handy",  "Clear",   "Solid",
     "Sunny",    "Pocket", "Daily", "Silent", "Nimble",  "Modern", "Classic", "Steady",
     "Friendly", "Ultra",  "Super", "Easy",   "Private", "Open"});
constexpr auto kOpenings = std::to_array<Word>(
    {"Vel",  "Mor",  "Tarn", "Quor", "Bel",  "Fen",  "Gral", "Hov",  "Ister", "Jun",
     "Kelm", "Lorn", "Mav",  "Nel",  "Orb",  "Plim", "Rusk", "Sel",  "Thal",  "Ulm",
     "Vex",  "Wim",  "Yar",  "Zor",  "Brin", "Cald", "Drum", "Elv",  "Fost",  "Glen",
     "Hask", "Ilm",  "Jask", "Krel", "Lum",  "Mirk", "Nost", "Ostr", "Perv",  "Quil",
     "Rast", "Sorv", "Trel", "Umbr", "Varn", "Wold", "Yelm", "Zint"});
constexpr auto kMiddles = std::to_array<Word>(
    {"a",  "o",   "i",   "u",   "e",   "an",  "or",  "il",  "um",  "en", "av",  "ost",
     "ir", "ell", "ond", "usk", "amb", "ing", "erv", "olt", "ast", "ip", "unn", "av"});
constexpr auto kEndings =
    std::to_array<Word>({"ora",  "ix",  "ello", "und", "ask", "imo", "ette", "ard", "ova", "une",
                         "ish",  "ora", "elle", "ano", "ist", "umo", "ake",  "ow",  "eth", "isk",
                         "ando", "ier", "olla", "enn", "ug",  "ima", "orm",  "ula", "aft", "iel"});
constexpr auto kCompanyForms = std::to_array<Word>(
    {"Software", "Labs, Inc.", "GmbH", "Apps Ltd", "Studio", "Interactive LLC", "AB", "S.r.l.",
     "Co., Ltd.", "SAS", "B.V.", "Works", "Pty Ltd", "Digital"});
constexpr auto kGivenNames =
    std::to_array<Word>({"Anna",   "Marek", "Yuki",   "Sofia", "Lars", "Chloé", "Diego", "Priya",
                         "Hannah", "Omar",  "Ingrid", "Paolo", "Mei",  "Jonas", "Zoë",   "Ravi",
                         "Elena",  "Tariq", "Freya",  "Lukas", "Noor", "Björn", "Aiko",  "Teresa"});
constexpr auto kFamilyEndings =
    std::to_array<Word>({"sen", "mann", "ova", "ski", "ini", "ez", "dottir", "moto", "berg",
                         "wright", "son", "etti", "escu", "quist"});
constexpr auto kSubscriptionNames = std::to_array<Word>(
    {"Premium", "Pro Access", "Plus Membership", "All Access", "Supporter Plan", "Unlimited"});
constexpr auto kUnlockNames =
    std::to_array<Word>({"Full Version", "Pro Upgrade", "Lifetime Access", "Remove Ads",
                         "Unlock All Features", "Premium Unlock"});
constexpr auto kExtraNames =
    std::to_array<Word>({"100 Coins", "Small Tip", "Generous Tip", "Theme Pack", "Sticker Pack",
                         "500 Credits", "Starter Bundle", "Energy Refill"});

}  // namespace

std::span<const GenreWords> genreWords() { return kGenreWords; }
std::span<const std::string_view> adjectives() { return kAdjectives; }
std::span<const std::string_view> openings() { return kOpenings; }
std::span<const std::string_view> middles() { return kMiddles; }
std::span<const std::string_view> endings() { return kEndings; }
std::span<const std::string_view> companyForms() { return kCompanyForms; }
std::span<const std::string_view> givenNames() { return kGivenNames; }
std::span<const std::string_view> familyEndings() { return kFamilyEndings; }
std::span<const std::string_view> subscriptionNames() { return kSubscriptionNames; }
std::span<const std::string_view> unlockNames() { return kUnlockNames; }
std::span<const std::string_view> extraNames() { return kExtraNames; }

}  // namespace quillet::sandbox
