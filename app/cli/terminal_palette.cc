#include "terminal_palette.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <vector>

#include "controls/readable_colour.h"

namespace tessaly::cli {

namespace {

// The sixteen basic colours as xterm shows them, by their number.
constexpr std::array<Rgb, 16> kBasicColours = {{
    {0, 0, 0}, {205, 0, 0}, {0, 205, 0}, {205, 205, 0},
    {0, 0, 238}, {205, 0, 205}, {0, 205, 205}, {229, 229, 229},
    {127, 127, 127}, {255, 0, 0}, {0, 255, 0}, {255, 255, 0},
    {92, 92, 255}, {255, 0, 255}, {0, 255, 255}, {255, 255, 255},
}};

// Colour 16 + n of the 256: a cube of six levels a channel, then 24 greys.
Rgb PaletteColour(int n) {
  constexpr std::array<std::uint8_t, 6> kLevels = {0, 95, 135, 175, 215, 255};
  if (n >= 216) {
    const auto grey = static_cast<std::uint8_t>(8 + 10 * (n - 216));
    return {grey, grey, grey};
  }
  return {kLevels[n / 36], kLevels[n / 6 % 6], kLevels[n % 6]};
}

bool Grey(Rgb colour) { return colour.red == colour.green && colour.green == colour.blue; }

double Hue(Rgb colour) {
  const double r = colour.red, g = colour.green, b = colour.blue;
  return std::atan2(std::sqrt(3.0) * (g - b), 2 * r - g - b) * 180 / 3.14159265358979;
}

// How unlike `wanted` a terminal colour looks: another hue first, then
// the distance in the cube of colours.
double Unlikeness(Rgb wanted, Rgb offered) {
  const auto square = [](int a, int b) { return double(a - b) * (a - b); };
  const double distance = square(wanted.red, offered.red) + square(wanted.green, offered.green) +
                          square(wanted.blue, offered.blue);
  if (Grey(wanted) || Grey(offered)) return (Grey(wanted) == Grey(offered) ? 0 : 1e9) + distance;
  const double turn = std::abs(std::remainder(Hue(wanted) - Hue(offered), 360.0));
  return turn * 1e6 + distance;
}

// The number of the colour among `offered` most like `wanted` that reads
// on `background`; -1 when none does.
int Nearest(Rgb wanted, Rgb background, const std::vector<Rgb>& offered) {
  int best = -1;
  double bestUnlikeness = std::numeric_limits<double>::infinity();
  for (int i = 0; i < static_cast<int>(offered.size()); ++i) {
    if (ContrastRatio(offered[i], background) < kReadableContrast) continue;
    const double unlikeness = Unlikeness(wanted, offered[i]);
    if (unlikeness < bestUnlikeness) {
      best = i;
      bestUnlikeness = unlikeness;
    }
  }
  return best;
}

bool Set(const char* value) { return value != nullptr && *value != '\0'; }

}  // namespace

bool IsDumbTerminal(const char* term) { return term != nullptr && std::string_view(term) == "dumb"; }

ColourMode ColourModeFor(bool terminal, const char* noColor, const char* colorTerm,
                         const char* term) {
  if (!terminal || Set(noColor) || IsDumbTerminal(term)) return ColourMode::kNone;
  if (Set(colorTerm)) {
    const std::string_view value(colorTerm);
    if (value == "truecolor" || value == "24bit") return ColourMode::kTrueColour;
  }
  if (Set(term) && std::string_view(term).find("256color") != std::string_view::npos) {
    return ColourMode::k256;
  }
  return ColourMode::kBasic;
}

std::string ColourEscape(Rgb colour, const Colours& colours) {
  if (colours.mode == ColourMode::kNone || colour == Rgb{}) return {};
  const Rgb wanted = ReadableOn(colour, colours.background);
  if (colours.mode == ColourMode::kTrueColour) {
    return "\x1b[38;2;" + std::to_string(wanted.red) + ';' + std::to_string(wanted.green) + ';' +
           std::to_string(wanted.blue) + 'm';
  }
  if (colours.mode == ColourMode::k256) {
    std::vector<Rgb> palette;
    for (int n = 0; n < 240; ++n) palette.push_back(PaletteColour(n));
    const int n = Nearest(wanted, colours.background, palette);
    return n < 0 ? std::string() : "\x1b[38;5;" + std::to_string(16 + n) + 'm';
  }
  const int n = Nearest(wanted, colours.background, {kBasicColours.begin(), kBasicColours.end()});
  return n < 0 ? std::string() : "\x1b[" + std::to_string(n < 8 ? 30 + n : 90 + n - 8) + 'm';
}

std::optional<Rgb> BackgroundInAnswer(std::string_view answer) {
  const std::size_t start = answer.find("]11;rgb:");
  if (start == std::string_view::npos) return std::nullopt;
  std::string_view rest = answer.substr(start + 8);
  std::array<std::uint8_t, 3> channels{};
  for (std::size_t i = 0; i < channels.size(); ++i) {
    unsigned value = 0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value, 16);
    const auto digits = static_cast<int>(end - rest.data());
    if (error != std::errc() || digits < 1 || digits > 4) return std::nullopt;
    // One to four hex digits, each a fraction of the full scale.
    channels[i] = static_cast<std::uint8_t>(std::lround(value * 255.0 / ((1u << (4 * digits)) - 1)));
    rest.remove_prefix(static_cast<std::size_t>(digits));
    if (i + 1 < channels.size()) {
      if (!rest.starts_with('/')) return std::nullopt;
      rest.remove_prefix(1);
    }
  }
  return Rgb{channels[0], channels[1], channels[2]};
}

std::optional<Rgb> BackgroundInColorFgBg(const char* value) {
  if (!Set(value)) return std::nullopt;
  const std::string_view text(value);
  const std::string_view last = text.substr(text.rfind(';') + 1);
  unsigned number = 0;
  const auto [end, error] = std::from_chars(last.data(), last.data() + last.size(), number);
  if (error != std::errc() || end != last.data() + last.size() || number >= kBasicColours.size()) {
    return std::nullopt;
  }
  return kBasicColours[number];
}

}  // namespace tessaly::cli
