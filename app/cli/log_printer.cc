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
  for (std::size_t pos = text.find('\n', from); pos < to; pos = text.find('\n', pos + 1)) {
    if (pos == 0 || text[pos - 1] != '\r') continue;  // a lone line feed is escaped with the rest
    // The CR of the pair may close the piece before this one.
    if (pos > piece) text::AppendVisible(text.substr(piece, pos - 1 - piece), text::Layout::kLineEnds, out);
    out += '\n';
    piece = pos + 1;
  }
  std::size_t end = to;
  // A CR whose LF opens the next piece goes out with it.
  if (end > piece && text[end - 1] == '\r' && end < text.size() && text[end] == '\n') --end;
  text::AppendVisible(text.substr(piece, end - piece), text::Layout::kLineEnds, out);
}

// What a long text is written out in, so that no copy of it all is made.
constexpr std::size_t kChunk = 1 << 16;

}  // namespace

std::string Coloured(std::string_view text, Rgb colour, const Colours& colours) {
  const std::string start = ColourEscape(colour, colours);
  if (start.empty()) return std::string(text);
  return start + std::string(text) + "\x1b[0m";
}

void PrintRichText(const RichTextBox& box, std::ostream& out, const Colours& colours) {
  const std::string& text = box.text();
  const auto byStart = [](const ColourSpan& a, const ColourSpan& b) { return a.start < b.start; };
  // A log's runs come in order already; only others are copied to be sorted.
  std::vector<ColourSpan> sorted;
  if (!std::is_sorted(box.spans().begin(), box.spans().end(), byStart)) {
    sorted = box.spans();
    std::stable_sort(sorted.begin(), sorted.end(), byStart);
  }
  const std::vector<ColourSpan>& spans = sorted.empty() ? box.spans() : sorted;
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
  shown.reserve(kChunk + kChunk / 4);
  for (const ColourSpan& span : spans) {
    if (shown.size() >= kChunk) {
      out << shown;
      shown.clear();
    }
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
