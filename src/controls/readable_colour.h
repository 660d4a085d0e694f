#ifndef TESSALY_CONTROLS_READABLE_COLOUR_H_
#define TESSALY_CONTROLS_READABLE_COLOUR_H_

#include "controls/rich_text_box.h"

namespace tessaly {

// The contrast the text of a log or list must reach on its background, as
// accessibility guidelines ask of normal text.
inline constexpr double kReadableContrast = 4.5;

// How far apart two colours are in lightness, from 1 (the same) to 21
// (black and white), as the accessibility guidelines reckon it.
double ContrastRatio(Rgb one, Rgb other);

// `colour` itself where it reaches kReadableContrast on `background`;
// otherwise the least mix of it with white (on a dark background) or
// black (on a light one) that does, so that blue stays a blue and red a
// red.
Rgb ReadableOn(Rgb colour, Rgb background);

}  // namespace tessaly

#endif  // TESSALY_CONTROLS_READABLE_COLOUR_H_
