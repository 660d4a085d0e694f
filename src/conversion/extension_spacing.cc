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

namespace {

std::string MendBlanks(std::string_view text) {
  std::string out(text);
  text::ReplaceAllIn(out, " .", ".");
  text::ReplaceAllIn(out, "   ", " ");
  text::ReplaceAllIn(out, "  ", " ");
  return out;
}

}  // namespace

std::string FixSpacing(std::string_view text) {
  return std::string(text::TrimBlanks(MendBlanks(text)));
}

std::string FixSpacingBehindFolder(std::string_view text) {
  std::string out = MendBlanks(text);
  out.erase(out.find_last_not_of(' ') + 1);  // all of it when it is blanks only
  return out;
}

}  // namespace tessaly
