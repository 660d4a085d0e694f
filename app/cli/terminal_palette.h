#ifndef TESSALY_APP_CLI_TERMINAL_PALETTE_H_
#define TESSALY_APP_CLI_TERMINAL_PALETTE_H_

#include <optional>
#include <string>
#include <string_view>

#include "controls/rich_text_box.h"

namespace tessaly::cli {

enum class ColourMode {
  kNone,        // plain text
  kBasic,       // the sixteen standard terminal colours
  k256,         // the 256-colour palette
  kTrueColour,  // 24-bit colour escapes
};

// How output is coloured: the escapes the terminal takes, and the
// background the text stands on (black where the terminal does not say).
struct Colours {
  Colours(ColourMode mode = ColourMode::kNone, Rgb background = {}) : mode(mode), background(background) {}
  ColourMode mode;
  Rgb background;
};

// How to colour output to a stream: none unless it is a terminal, when
// NO_COLOR is set (non-empty) or when TERM is "dumb"; 24-bit when COLORTERM
// says the terminal takes it; the 256 colours where TERM names them; else
// the basic colours. Null arguments count as unset.
ColourMode ColourModeFor(bool terminal, const char* noColor, const char* colorTerm,
                         const char* term);

// True for TERM=dumb, a terminal that takes no colour and no cursor codes.
bool IsDumbTerminal(const char* term);

// The escape that starts text in `colour` (black: the terminal's own, no
// escape): the colour, or the one nearest it that the terminal has, made
// readable on the background (see ReadableOn). With the basic colours,
// whose shades each terminal sets itself, xterm's are assumed.
std::string ColourEscape(Rgb colour, const Colours& colours);

// The background a terminal reports in answer to "\x1b]11;?" (as
// "\x1b]11;rgb:1e1e/1e1e/1e1e\x1b\\"), if `answer` holds one.
std::optional<Rgb> BackgroundInAnswer(std::string_view answer);

// The background that COLORFGBG ("15;0": white on black) names, if set.
std::optional<Rgb> BackgroundInColorFgBg(const char* value);

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_TERMINAL_PALETTE_H_
