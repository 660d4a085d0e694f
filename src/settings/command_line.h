#ifndef TESSALY_SETTINGS_COMMAND_LINE_H_
#define TESSALY_SETTINGS_COMMAND_LINE_H_

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly::command_line {

// A switch is found by a plain, case-exact search for its text anywhere in
// the command line; nothing marks where it ends.
inline bool Holds(std::string_view commandLine, std::string_view text) {
  return commandLine.find(text) != std::string_view::npos;
}

// The paths before the first "/": blanks cut at both ends, every double
// quote deleted, split at ";". Pieces are not trimmed one by one. Nothing
// when that part is empty before its quotes go, so a part of quotes alone
// counts as given and holds no path.
std::optional<std::vector<std::string>> FilePaths(std::string_view commandLine);

// The value of "/placement<number>:" (1 to 6): what stands between the
// double quote directly behind the switch and the next one (or the end).
// Nothing when the switch is missing or not followed by a quote.
std::optional<std::string> PlacementValue(std::string_view commandLine, int number);

// The digit behind the first "/step:"; 0 for anything else.
int StepCount(std::string_view commandLine);

// A switch that sets a check box of step 2 to a state.
struct OptionSwitch {
  std::string_view text;
  std::string_view box;  // the control's name
  std::int16_t state;
};

// Looked at only when "/settings:" is present, in this order.
inline constexpr std::array<OptionSwitch, 14> kOptionSwitches = {{
    {"/settings:ShortExtension", "chkShortExtension", 1},
    {"/settings:LongExtension", "chkLongExtension", 1},
    {"/settings:RemoveDoubleSpace", "chkRemoveDoubleSpace", 1},
    {"/settings:RemoveExtraSpaces", "chkExtra", 1},
    {"/settings:Capitalize", "chkCapitalize", 1},
    {"/settings:RemoveUnderscores", "chkRemoveu", 1},
    {"/settings:LowerCase", "chkLowercase", 1},
    {"/settings:DontAllowSpaces", "chkAllowSpaces", 0},
    {"/settings:FixSpacing", "chkFixSpacing", 1},
    {"/settings:RemoveNumbers", "chkRemoveNumbers", 1},
    {"/settings:UpperCase", "chkUpperCase", 1},
    {"/settings:ExampleFiles", "chkRealFiles", 0},
    {"/settings:IncludePaths", "chkIncludePaths", 1},
    {"/settings:UnwantedFormatting", "chkFormatting", 1},
}};

}  // namespace tessaly::command_line

#endif  // TESSALY_SETTINGS_COMMAND_LINE_H_
