#ifndef TESSALY_APP_CLI_LOG_PRINTER_H_
#define TESSALY_APP_CLI_LOG_PRINTER_H_

#include <ostream>
#include <string>
#include <string_view>

#include "controls/rich_text_box.h"
#include "terminal_palette.h"

namespace tessaly::cli {

// `text` in `colour` (black: the terminal's own), as ColourEscape says.
std::string Coloured(std::string_view text, Rgb colour, const Colours& colours);

// Writes the text of `box` with its coloured runs, line ends as "\n" and a
// line end behind the last line; any other control character shows
// escaped. Black is the terminal's own colour, since black text vanishes
// on a dark terminal; the other colours are made readable on its
// background.
void PrintRichText(const RichTextBox& box, std::ostream& out, const Colours& colours);

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_LOG_PRINTER_H_
