#include "conversion/text_rules.h"

#include "text/text_ops.h"

namespace tessaly {

std::string FixExtension(std::string_view text, bool shortForm) {
  std::string out(text);
  if (shortForm) {
    text::ReplaceAllIgnoreCaseIn(out, "mpeg", "mpg");
    text::ReplaceAllIgnoreCaseIn(out, "mpg3", "mp3");
    text::ReplaceAllIgnoreCaseIn(out, "jpeg", "jpg");
    text::ReplaceAllIgnoreCaseIn(out, "tiff", "tif");
  } else {
    text::ReplaceAllIgnoreCaseIn(out, "mpg", "mpeg");
    text::ReplaceAllIgnoreCaseIn(out, "jpg", "jpeg");
    text::ReplaceAllIgnoreCaseIn(out, "tif", "tiff", "f");
  }
  return out;
}

std::string FixSpacing(std::string_view text) {
  std::string out(text);
  text::ReplaceAllIn(out, " .", ".");
  text::ReplaceAllIn(out, "   ", " ");
  text::ReplaceAllIn(out, "  ", " ");
  return std::string(text::TrimBlanks(out));
}

}  // namespace tessaly
