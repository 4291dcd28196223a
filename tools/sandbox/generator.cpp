// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/generator.h"

#include <charconv>
#include <cmath>

#include "base/text.h"
#include "sandbox/random.h"
#include "sandbox/words.h"

namespace quillet::sandbox {

namespace {

// IDs begin where the newest of the real store's are, above all that are written by hand.
constexpr std::int64_t kFirstId = 6'400'000'000;
constexpr std::int64_t kIdStep = 617;
constexpr std::int64_t kFirstMakerId = 2'300'000'000;
constexpr std::int64_t kMakerIdStep = 101;

// Makers share out the apps of a block of eight: one has three, one two, three have one.
constexpr std::uint32_t kBlock = 8;
constexpr std::array<std::uint32_t, kBlock> kFirstOfMaker{0, 1, 2, 3, 3, 5, 5, 5};

/// The parts of an app that are drawn apart, so that one can be had without the others.
enum class Draw : std::uint64_t { head, ratings, rest, maker };

Random drawn(std::uint64_t seed, std::uint32_t number, Draw what) {
  return Random(mixed(mixed(seed, number), static_cast<std::uint64_t>(what)));
}

std::string invented(Random& random) {
  std::string word(random.pick(words().openings));
  word += random.pick(words().middles);
  return word + random.pick(words().endings);
}

std::string nameOf(const std::string& kind, Random& random) {
  switch (random.below(6)) {
    case 0: return fmt::format("{} {}", random.pick(words().adjectives), kind);
    case 1:
      return fmt::format("{}: {} {}", invented(random), random.pick(words().adjectives), kind);
    case 2: return fmt::format("{} – {}", invented(random), kind);
    case 3: return invented(random);
    default: return fmt::format("{} {}", invented(random), kind);
  }
}

Machines machinesOf(Random& random) {
  constexpr std::array kChoices{kMac, kMac, kMac, kMacAndIos, kIos, kIos, kIphone, kIpad};
  return random.pick(kChoices);
}

/// Most are sold everywhere, some in all but one, a few in a handful.
StorefrontSet storefrontsOf(Random& random) {
  StorefrontSet set = kEverywhere;
  const std::size_t dice = random.below(20);
  if (dice < 2) set.reset(random.below(kStorefrontCount));
  if (dice == 2) set = StorefrontSet(random.between(1, 1023));
  return set;
}

/// Half of all apps are hardly known, a few are known to all.
std::int64_t ratingsOf(Random random) {
  if (random.oneIn(9)) return 0;
  return static_cast<std::int64_t>(std::exp(2.5 + 2.2 * random.normal()));
}

int priceOf(Random& random) {
  constexpr std::array kPaid{99,  99,  199, 199, 299,  299,  299,  499,
                             499, 499, 699, 999, 1499, 1999, 2999, 4999};
  return random.below(10) < 6 ? 0 : random.pick(kPaid);
}

std::string versionOf(Random& random) {
  const int major = static_cast<int>(std::exp(0.8 * std::abs(random.normal())));
  if (random.oneIn(3)) return fmt::format("{}.{}", major, random.below(15));
  return fmt::format("{}.{}.{}", major, random.below(12), random.below(9));
}

/// Three in five are cared for; the others were last seen up to nine years ago.
int updatedOf(Random& random) {
  return random.below(5) < 3 ? random.between(1, 180) : random.between(181, 3300);
}

std::vector<SamplePurchase> purchasesOf(Random& random) {
  constexpr std::array<std::string_view, 6> kPeriods{"P1M", "P1M", "P1Y", "P1Y", "P1W", "P3M"};
  constexpr std::array kPrices{99, 199, 299, 499, 999, 1999, 2999};
  std::vector<SamplePurchase> purchases;
  if (random.oneIn(2)) return purchases;
  for (int left = random.between(0, 2); left > 0; --left) {
    purchases.push_back(subscription(random.pick(words().subscriptionNames), random.pick(kPrices),
                                     std::string(random.pick(kPeriods))));
  }
  if (random.oneIn(2)) {
    purchases.push_back(boughtOnce(random.pick(words().unlockNames), random.pick(kPrices)));
  }
  for (int left = random.oneIn(3) ? random.between(1, 3) : 0; left > 0; --left) {
    purchases.push_back(boughtOnce(random.pick(words().extraNames), random.pick(kPrices)));
  }
  return purchases;
}

std::vector<std::string> languagesOf(Random& random) {
  constexpr std::array<std::string_view, 9> kOthers{"FR", "DE", "JA", "ES", "IT",
                                                    "NL", "PT", "ZH", "KO"};
  std::vector<std::string> languages{"EN"};
  const std::size_t count = random.oneIn(2) ? 0 : random.below(kOthers.size() + 1);
  languages.insert(languages.end(), kOthers.begin(),
                   kOthers.begin() + static_cast<std::ptrdiff_t>(count));
  return languages;
}

/// "Rain Radar" as a bundle identifier has it: "rainradar".
std::string bundlePart(std::string_view text) {
  std::string part;
  for (const char c : lowerAscii(text)) {
    if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) part += c;
  }
  return part;
}

std::string base36(std::uint32_t number) {
  std::array<char, 8> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 36).ptr;
  return {digits.data(), end};
}

/// Draws what has to do with a build, in one order.
void drawBuild(AppSketch& sketch, Random& random) {
  constexpr std::array<std::string_view, 7> kMac{"10.13", "10.15", "11.0", "12.0",
                                                 "13.0",  "14.0",  "15.0"};
  constexpr std::array<std::string_view, 6> kIos{"12.0", "13.0", "14.0", "15.0", "16.0", "17.0"};
  sketch.version = versionOf(random);
  sketch.updated = updatedOf(random);
  sketch.every = random.between(10, 150);
  sketch.first = sketch.updated + random.between(0, 3000);
  sketch.bytes = static_cast<std::int64_t>(std::exp(17.2 + 1.3 * random.normal()));
  sketch.minimumMac = random.pick(kMac);
  sketch.minimumIos = random.pick(kIos);
  const bool isOld = sketch.updated > 1800;
  const std::size_t dice = random.below(10);
  if (isOld || dice == 0) sketch.macBuild = MacBuild::intelOnly;
  if (!isOld && dice == 1) sketch.macBuild = MacBuild::siliconOnly;
}

/// Draws what no name hangs on, in one order.
void drawFacts(AppSketch& sketch, Random& random) {
  constexpr std::array kMacRatings{MacRatings::zero, MacRatings::zero, MacRatings::absent,
                                   MacRatings::shown};
  sketch.usCents = priceOf(random);
  sketch.stars = std::clamp(4.3 + 0.5 * random.normal(), 1.0, 5.0);
  drawBuild(sketch, random);
  sketch.purchases = purchasesOf(random);
  sketch.languages = languagesOf(random);
  sketch.hidesPrice = random.oneIn(100);
  sketch.macRatings = random.pick(kMacRatings);
}

std::string aboutOf(const AppHead& head) {
  const bool isVowel = std::string_view("AEIOU").find(head.kind.front()) != std::string_view::npos;
  return fmt::format("{} is {} {} that does one thing, and does it well.", head.name,
                     isVowel ? "an" : "a", head.kind);
}

}  // namespace

std::int64_t Generator::ratings(std::uint32_t number) const {
  return ratingsOf(drawn(seed_, number, Draw::ratings));
}

AppHead Generator::head(std::uint32_t number) const {
  Random random = drawn(seed_, number, Draw::head);
  const Genre& main = random.pick(words().genres);
  AppHead head;
  head.genres.push_back(main.id);
  const int second = random.pick(words().genres).id;
  if (second != main.id && random.oneIn(2)) head.genres.push_back(second);
  head.kind = random.pick(main.kinds);
  head.name = nameOf(head.kind, random);
  head.machines = machinesOf(random);
  head.storefronts = storefrontsOf(random);
  head.ratings = ratings(number);
  head.seller = makerOf(number).seller;
  return head;
}

AppSketch Generator::sketch(std::uint32_t number) const {
  AppHead head = this->head(number);
  Random random = drawn(seed_, number, Draw::rest);
  AppSketch sketch;
  sketch.id = kFirstId + number * kIdStep;
  sketch.maker = makerOf(number);
  sketch.bundleId = fmt::format("com.{}.{}-{}", bundlePart(sketch.maker.artist),
                                bundlePart(head.name), base36(number));
  sketch.about = aboutOf(head);
  sketch.tagline = fmt::format("{} {}", random.pick(words().adjectives), head.kind);
  sketch.name = std::move(head.name);
  sketch.machines = head.machines;
  sketch.genres = std::move(head.genres);
  sketch.storefronts = head.storefronts;
  sketch.ratings = head.ratings;
  drawFacts(sketch, random);
  return sketch;
}

Maker Generator::makerOf(std::uint32_t number) const {
  const std::uint32_t first = number / kBlock * kBlock + kFirstOfMaker[number % kBlock];
  Random random = drawn(seed_, first, Draw::maker);
  Maker maker;
  maker.id = kFirstMakerId + first * kMakerIdStep;
  const std::string word = invented(random);
  if (random.oneIn(3)) {
    maker.artist = fmt::format("{} {}{}", random.pick(words().givenNames), word.substr(0, 4),
                               random.pick(words().familyEndings));
    maker.seller = maker.artist;
  } else {
    maker.artist = word;
    maker.seller = fmt::format("{} {}", word, random.pick(words().companyForms));
  }
  if (!random.oneIn(5)) maker.site = fmt::format("https://{}.example", lowerAscii(word));
  return maker;
}

std::optional<std::uint32_t> Generator::numberOfId(std::int64_t id) const {
  const std::int64_t number = (id - kFirstId) / kIdStep;
  if (id < kFirstId || number >= kMostApps || (id - kFirstId) % kIdStep != 0) return std::nullopt;
  return static_cast<std::uint32_t>(number);
}

std::optional<std::uint32_t> Generator::numberOfBundleId(std::string_view bundleId) const {
  const std::size_t dash = bundleId.rfind('-');
  if (dash == std::string_view::npos) return std::nullopt;
  const std::string_view digits = bundleId.substr(dash + 1);
  std::uint32_t number = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), number, 36);
  if (error != std::errc() || number >= kMostApps) return std::nullopt;
  if (end != digits.data() + digits.size() || sketch(number).bundleId != bundleId) return {};
  return number;
}

std::vector<std::uint32_t> Generator::numbersOfMaker(std::int64_t makerId) const {
  const std::int64_t offset = makerId - kFirstMakerId;
  if (offset < 0 || offset % kMakerIdStep != 0 || offset / kMakerIdStep >= kMostApps) return {};
  const auto first = static_cast<std::uint32_t>(offset / kMakerIdStep);
  std::vector<std::uint32_t> numbers;
  for (std::uint32_t place = 0; place < kBlock; ++place) {
    if (kFirstOfMaker[place] == first % kBlock) numbers.push_back(first / kBlock * kBlock + place);
  }
  return numbers;
}

}  // namespace quillet::sandbox
