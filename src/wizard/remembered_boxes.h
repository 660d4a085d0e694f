#ifndef TESSALY_WIZARD_REMEMBERED_BOXES_H_
#define TESSALY_WIZARD_REMEMBERED_BOXES_H_

#include <array>
#include <string_view>

#include "wizard/tessaly_form.h"

namespace tessaly {

// A check box of step 2 that is stored between runs under its own name,
// and the field of the conversion options it feeds.
struct RememberedBox {
  std::string_view name;
  std::string_view caption;
  CheckState defaultState;
  CheckBox fTessaly::*box;
  CheckState ConversionOptions::*option;
};

// In the order of saving and loading: a later row wins where two collide.
inline constexpr std::array<RememberedBox, 14> kRememberedBoxes = {{
    {"chkShortExtension", "Short Extensions", 0, &fTessaly::chkShortExtension,
     &ConversionOptions::chkShortExtension},
    {"chkLongExtension", "Long Extensions", 0, &fTessaly::chkLongExtension,
     &ConversionOptions::chkLongExtension},
    {"chkRemoveDoubleSpace", "Remove double spaces", 0, &fTessaly::chkRemoveDoubleSpace,
     &ConversionOptions::chkRemoveDoubleSpace},
    {"chkExtra", "Remove Extra Periods (.)", 0, &fTessaly::chkExtra,
     &ConversionOptions::chkExtra},
    {"chkCapitalize", "Capitalize Words", 0, &fTessaly::chkCapitalize,
     &ConversionOptions::chkCapitalize},
    {"chkRemoveu", "Replace _ with spaces", 0, &fTessaly::chkRemoveu,
     &ConversionOptions::chkRemoveu},
    {"chkLowercase", "lowercase", 0, &fTessaly::chkLowercase, &ConversionOptions::chkLowercase},
    {"chkAllowSpaces", "Allow Spaces", 1, &fTessaly::chkAllowSpaces,
     &ConversionOptions::chkAllowSpaces},
    {"chkFixSpacing", "Fix Spacing Errors", 0, &fTessaly::chkFixSpacing,
     &ConversionOptions::chkFixSpacing},
    {"chkRemoveNumbers", "Remove (#)'s", 0, &fTessaly::chkRemoveNumbers,
     &ConversionOptions::chkRemoveNumbers},
    {"chkUpperCase", "UPPERCASE", 0, &fTessaly::chkUpperCase, &ConversionOptions::chkUpperCase},
    {"chkRealFiles", "Use Real Files", 1, &fTessaly::chkRealFiles,
     &ConversionOptions::chkRealFiles},
    {"chkIncludePaths", "Include Path", 0, &fTessaly::chkIncludePaths,
     &ConversionOptions::chkIncludePaths},
    {"chkFormatting", "Unwanted Formatting", 0, &fTessaly::chkFormatting,
     &ConversionOptions::chkFormatting},
}};

}  // namespace tessaly

#endif  // TESSALY_WIZARD_REMEMBERED_BOXES_H_
