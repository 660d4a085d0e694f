#include "log_printer.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "text/utf8.h"
#include "text/visible_text.h"

namespace tessaly::cli {

namespace {

// Adds bytes `from` to `to` of `text` with each CR LF as "\n" and every
// other control character escaped, so a name cannot move the cursor or
// forge a line. A CR LF may straddle two pieces, so the whole text is
// consulted.
void AddLines(std::string_view text, std::size_t from, std::size_t to, std::string& out) {
  std::size_t piece = from;
  for (std::size_t pos = from; pos < to; ++pos) {
    const bool pairStart = text[pos] == '\r' && pos + 1 < text.size() && text[pos + 1] == '\n';
    const bool pairEnd = text[pos] == '\n' && pos > 0 && text[pos - 1] == '\r';
    if (!pairStart && !pairEnd) continue;
    text::AppendVisible(text.substr(piece, pos - piece), text::Layout::kLineEnds, out);
    if (pairEnd) out += '\n';
    piece = pos + 1;
  }
  text::AppendVisible(text.substr(piece, to - piece), text::Layout::kLineEnds, out);
}

}  // namespace

std::string Coloured(std::string_view text, Rgb colour, const Colours& colours) {
  const std::string start = ColourEscape(colour, colours);
  if (start.empty()) return std::string(text);
  return start + std::string(text) + "\x1b[0m";
}

void PrintRichText(const RichTextBox& box, std::ostream& out, const Colours& colours) {
  const std::string& text = box.text();
  std::vector<ColourSpan> spans = box.spans();
  std::stable_sort(spans.begin(), spans.end(),
                   [](const ColourSpan& a, const ColourSpan& b) { return a.start < b.start; });
  // One walk over the text turns the runs' character counts into bytes.
  std::size_t byte = 0;
  std::size_t character = 0;
  auto advanceTo = [&](std::size_t target) {
    while (character < target && byte < text.size()) {
      const bool ascii = static_cast<unsigned char>(text[byte]) < 0x80;
      byte += ascii ? 1 : text::DecodeAt(text, byte).length;
      ++character;
    }
    return byte;
  };
  std::string shown;
  shown.reserve(text.size() + text.size() / 8);
  for (const ColourSpan& span : spans) {
    if (span.start < character) continue;  // overlaps one already written
    const std::size_t plainFrom = byte;
    AddLines(text, plainFrom, advanceTo(span.start), shown);
    const std::size_t colourFrom = byte;
    const std::string colour = ColourEscape(span.colour, colours);
    shown += colour;
    AddLines(text, colourFrom, advanceTo(span.start + span.length), shown);
    if (!colour.empty()) shown += "\x1b[0m";
  }
  AddLines(text, byte, text.size(), shown);
  if (!text.empty() && !text.ends_with('\n')) shown += '\n';
  out << shown;
}

}  // namespace tessaly::cli
