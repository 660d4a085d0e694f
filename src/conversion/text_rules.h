#ifndef TESSALY_CONVERSION_TEXT_RULES_H_
#define TESSALY_CONVERSION_TEXT_RULES_H_

#include <string>
#include <string_view>

namespace tessaly {

// Title case for a whole path: words start after a blank, "/" or "\"; the
// rest of each blank-separated piece is lowered; " Of ", " The ", " And ",
// " Or " between blanks are lowered again.
std::string CapitalizeWords(std::string_view text);

// Rewrites the extension spellings anywhere in `text`, ignoring case:
// short makes mpeg, mpg3, jpeg, tiff into mpg, mp3, jpg, tif; long makes
// mpg, jpg, tif into mpeg, jpeg, tiff.
std::string FixExtension(std::string_view text, bool shortForm);

// " ." to ".", blank runs shortened by two single passes, then a trim of
// both ends of the whole path.
std::string FixSpacing(std::string_view text);
// The same for the text behind a folder that is kept apart: the path
// starts with the folder, so only the end is trimmed.
std::string FixSpacingBehindFolder(std::string_view text);

}  // namespace tessaly

#endif  // TESSALY_CONVERSION_TEXT_RULES_H_
