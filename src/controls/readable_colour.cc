#include "controls/readable_colour.h"

#include <cmath>
#include <cstdint>

namespace tessaly {

namespace {

// A channel's share of the light, as sRGB encodes it.
double Linear(std::uint8_t channel) {
  const double value = channel / 255.0;
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(Rgb colour) {
  return 0.2126 * Linear(colour.red) + 0.7152 * Linear(colour.green) +
         0.0722 * Linear(colour.blue);
}

std::uint8_t Towards(std::uint8_t from, std::uint8_t to, double share) {
  return static_cast<std::uint8_t>(std::lround(from + (to - from) * share));
}

Rgb Mixed(Rgb colour, Rgb with, double share) {
  return {Towards(colour.red, with.red, share), Towards(colour.green, with.green, share),
          Towards(colour.blue, with.blue, share)};
}

}  // namespace

double ContrastRatio(Rgb one, Rgb other) {
  const double a = Luminance(one) + 0.05;
  const double b = Luminance(other) + 0.05;
  return a > b ? a / b : b / a;
}

Rgb ReadableOn(Rgb colour, Rgb background) {
  if (ContrastRatio(colour, background) >= kReadableContrast) return colour;
  constexpr Rgb kWhite{255, 255, 255};
  constexpr Rgb kBlack{0, 0, 0};
  const Rgb away =
      ContrastRatio(kWhite, background) > ContrastRatio(kBlack, background) ? kWhite : kBlack;
  // The least share of `away` that is enough, halving the doubt each step.
  double enough = 1;
  double tooLittle = 0;
  for (int step = 0; step < 16; ++step) {
    const double share = (enough + tooLittle) / 2;
    const bool readable = ContrastRatio(Mixed(colour, away, share), background) >= kReadableContrast;
    (readable ? enough : tooLittle) = share;
  }
  return Mixed(colour, away, enough);
}

}  // namespace tessaly
