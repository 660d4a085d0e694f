#include "settings/switch_words.h"

#include <algorithm>
#include <array>

#include "settings/command_line.h"

namespace tessaly::command_line {

namespace {

constexpr std::array<std::string_view, 4> kPlainSwitches = {"/DefineUnwantedFormatting", "/show",
                                                             "/hide", "/exit"};

// Every text the reading searches for, and the quote that ends a value:
// none may stand in a placement value.
constexpr std::array<std::string_view, 8> kSwitchTexts = {
    "/settings:", "/placement", "/DefineUnwantedFormatting", "/show", "/hide", "/exit",
    "/step:",     "\""};

// "/placement1:" to "/placement6:" are all this long.
constexpr std::size_t kPlacementLength = 12;

bool IsPlacementWord(std::string_view word) {
  return word.size() >= kPlacementLength && word.starts_with("/placement") && word[10] >= '1' &&
         word[10] <= '6' && word[11] == ':';
}

// The value without the quotes a shell may have let through.
std::string_view BareValue(std::string_view value) {
  if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
    return value.substr(1, value.size() - 2);
  }
  return value;
}

bool IsPlacementSwitch(std::string_view word) {
  if (!IsPlacementWord(word)) return false;
  const std::string_view value = BareValue(word.substr(kPlacementLength));
  return std::none_of(kSwitchTexts.begin(), kSwitchTexts.end(),
                      [value](std::string_view text) { return Holds(value, text); });
}

bool IsOptionSwitch(std::string_view word) {
  return std::any_of(kOptionSwitches.begin(), kOptionSwitches.end(),
                     [word](const OptionSwitch& option) { return option.text == word; });
}

bool IsStepSwitch(std::string_view word) {
  return word.size() == 7 && word.starts_with("/step:") && word[6] >= '0' && word[6] <= '9';
}

bool LooksLikeASwitch(std::string_view word) {
  if (!word.starts_with('/')) return false;
  const std::string_view name = word.substr(1, word.find(':') - 1);
  return name.find('/') == std::string_view::npos;
}

}  // namespace

WordKind KindOfWord(std::string_view word) {
  if (IsOptionSwitch(word) || IsStepSwitch(word) || IsPlacementSwitch(word) ||
      std::find(kPlainSwitches.begin(), kPlainSwitches.end(), word) != kPlainSwitches.end()) {
    return WordKind::kSwitch;
  }
  return LooksLikeASwitch(word) ? WordKind::kBadSwitch : WordKind::kPath;
}

std::string SwitchText(const std::vector<std::string>& switchWords) {
  std::string text;
  for (const std::string& word : switchWords) {
    if (!text.empty()) text += ' ';
    if (IsPlacementWord(word)) {
      text += word.substr(0, kPlacementLength);
      text += '"';
      text += BareValue(std::string_view(word).substr(kPlacementLength));
      text += '"';
    } else {
      text += word;
    }
  }
  return text;
}

}  // namespace tessaly::command_line
