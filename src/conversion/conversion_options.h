#ifndef TESSALY_CONVERSION_CONVERSION_OPTIONS_H_
#define TESSALY_CONVERSION_CONVERSION_OPTIONS_H_

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tessaly {

// A check box's state: 0 clear, 1 ticked, 2 greyed. Stages act on 1 alone.
using CheckState = std::int16_t;
inline constexpr CheckState kUnchecked = 0;
inline constexpr CheckState kChecked = 1;
inline constexpr CheckState kGrayed = 2;

// One row of the advanced replace list.
struct ReplaceEntry {
  std::string find;
  std::string replacement;
  bool checked = true;
  friend bool operator==(const ReplaceEntry&, const ReplaceEntry&) = default;
};

// One row of the unwanted-formatting list.
struct FormattingEntry {
  std::string text;
  bool checked = true;
  friend bool operator==(const FormattingEntry&, const FormattingEntry&) = default;
};

// Everything that reaches ConvertName: the states of the option controls at
// the moment of the call, each named after its control.
struct ConversionOptions {
  CheckState chkRemoveNumbers = kUnchecked;
  // Placements 0 to 5, then "Replace:" (6) and "With" (7).
  std::array<std::string, 8> cboBatch{"Document Name", "extension"};
  CheckState chkFormatting = kUnchecked;
  CheckState chkLongExtension = kUnchecked;
  CheckState chkShortExtension = kUnchecked;
  bool optMoveSameFolder = true;
  bool optMoveNewFolder = false;
  std::string lFolder;
  CheckState chkExtra = kUnchecked;
  CheckState chkRemoveu = kUnchecked;
  CheckState chkRemoveDoubleSpace = kUnchecked;
  CheckState chkAllowSpaces = kChecked;
  CheckState chkCapitalize = kUnchecked;
  CheckState chkUpperCase = kUnchecked;
  CheckState chkLowercase = kUnchecked;
  CheckState chkFixSpacing = kUnchecked;
  CheckState chkIncludePaths = kUnchecked;
  CheckState chkRealFiles = kChecked;
  std::vector<ReplaceEntry> ReplaceList;
  std::vector<FormattingEntry> FormattingList;
  std::int32_t serial = 0;

  // Set by every conversion: whether the panel that covers the destination
  // choices is shown (it is while "Include Path" is ticked).
  bool pFolderPathVisible = false;
};

}  // namespace tessaly

#endif  // TESSALY_CONVERSION_CONVERSION_OPTIONS_H_
