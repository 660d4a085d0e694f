#include "log_printer.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "text/utf8.h"

namespace tessaly::cli {

namespace {

bool Set(const char* value) { return value != nullptr && *value != '\0'; }

std::string StartColour(Rgb colour, ColourMode mode) {
  if (mode == ColourMode::kNone || colour == Rgb{}) return {};
  if (mode == ColourMode::kTrueColour) {
    return "\x1b[38;2;" + std::to_string(colour.red) + ';' + std::to_string(colour.green) + ';' +
           std::to_string(colour.blue) + 'm';
  }
  // The nearest of the eight: each channel is on or off.
  const int code = 30 + (colour.red >= 128 ? 1 : 0) + (colour.green >= 128 ? 2 : 0) +
                   (colour.blue >= 128 ? 4 : 0);
  return code == 30 ? std::string() : "\x1b[" + std::to_string(code) + 'm';
}

// Writes bytes `from` to `to` of `text` with CR LF (and a lone CR) as
// "\n". A CR LF may straddle two pieces, so the whole text is consulted.
void WriteLines(std::string_view text, std::size_t from, std::size_t to, std::ostream& out) {
  while (from < to) {
    const std::size_t cr = std::min(text.find('\r', from), to);
    out.write(text.data() + from, static_cast<std::streamsize>(cr - from));
    if (cr == to) return;
    const bool crLf = cr + 1 < text.size() && text[cr + 1] == '\n';
    if (!crLf) out << '\n';
    from = cr + 1;
  }
}

}  // namespace

ColourMode ColourModeFor(bool terminal, const char* noColor, const char* colorTerm) {
  if (!terminal || Set(noColor)) return ColourMode::kNone;
  if (Set(colorTerm)) {
    const std::string_view value(colorTerm);
    if (value == "truecolor" || value == "24bit") return ColourMode::kTrueColour;
  }
  return ColourMode::kBasic;
}

void PrintRichText(const RichTextBox& box, std::ostream& out, ColourMode mode) {
  const std::string& text = box.text();
  std::vector<ColourSpan> spans = box.spans();
  std::stable_sort(spans.begin(), spans.end(),
                   [](const ColourSpan& a, const ColourSpan& b) { return a.start < b.start; });
  // One walk over the text turns the runs' character counts into bytes.
  std::size_t byte = 0;
  std::size_t character = 0;
  auto advanceTo = [&](std::size_t target) {
    while (character < target && byte < text.size()) {
      byte += text::DecodeAt(text, byte).length;
      ++character;
    }
    return byte;
  };
  for (const ColourSpan& span : spans) {
    if (span.start < character) continue;  // overlaps one already written
    const std::size_t plainFrom = byte;
    WriteLines(text, plainFrom, advanceTo(span.start), out);
    const std::size_t colourFrom = byte;
    const std::string colour = StartColour(span.colour, mode);
    out << colour;
    WriteLines(text, colourFrom, advanceTo(span.start + span.length), out);
    if (!colour.empty()) out << "\x1b[0m";
  }
  WriteLines(text, byte, text.size(), out);
  if (!text.empty() && !text.ends_with('\n')) out << '\n';
}

}  // namespace tessaly::cli
