#ifndef TESSALY_APP_CLI_LOG_PRINTER_H_
#define TESSALY_APP_CLI_LOG_PRINTER_H_

#include <ostream>
#include <string>
#include <string_view>

#include "controls/rich_text_box.h"

namespace tessaly::cli {

enum class ColourMode {
  kNone,        // plain text
  kBasic,       // the eight standard terminal colours
  kTrueColour,  // 24-bit colour escapes
};

// How to colour output to a stream: none unless it is a terminal, when
// NO_COLOR is set (non-empty) or when TERM is "dumb"; 24-bit when COLORTERM
// says the terminal takes it; else the basic colours. Null arguments count
// as unset.
ColourMode ColourModeFor(bool terminal, const char* noColor, const char* colorTerm,
                         const char* term);

// True for TERM=dumb, a terminal that takes no colour and no cursor codes.
bool IsDumbTerminal(const char* term);

// `text` in `colour` (black: the terminal's own).
std::string Coloured(std::string_view text, Rgb colour, ColourMode mode);

// Writes the text of `box` with its coloured runs, line ends as "\n" and a
// line end behind the last line; any other control character shows escaped. Black is the terminal's own colour, since
// black text vanishes on a dark terminal.
void PrintRichText(const RichTextBox& box, std::ostream& out, ColourMode mode);

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_LOG_PRINTER_H_
