#ifndef TESSALY_TEXT_VISIBLE_TEXT_H_
#define TESSALY_TEXT_VISIBLE_TEXT_H_

#include <optional>
#include <string>
#include <string_view>

namespace tessaly::text {

// How much of a text is its own layout.
enum class Layout {
  kLineEnds,  // a text with CR LF line ends: those pairs stay
  kNone,      // a name: nothing is layout, and a backslash is doubled so an
              // escape in the name cannot pass for one made here
};

// `text` with every character that would act instead of showing (on a
// terminal, or as layout in a window) written as a visible escape: the
// control characters as "\n", "\r", "\t" or "\x1b", the C1 controls, the
// line and paragraph separators and the marks that turn the direction of
// writing as "\u0085", "\u2028" or "\u202e",
// and a byte that is no UTF-8 as "\xff". Everything else is kept.
std::string Visible(std::string_view text, Layout layout);
// The same, added to the end of `out`.
void AppendVisible(std::string_view text, Layout layout, std::string& out);

// For a view that must keep one character for each: the picture of a
// control character ("\x1b" as U+241B, a line feed as U+240A), U+FFFD for
// the other characters that Visible escapes, and nothing
// for a character that shows as itself.
std::optional<char32_t> ControlPicture(char32_t code);
// `text` with every character that ControlPicture has a picture for shown
// as that picture; under kLineEnds, CR LF pairs stay. For a window's views,
// which show everything else as it is.
std::string Pictured(std::string_view text, Layout layout);

}  // namespace tessaly::text

#endif  // TESSALY_TEXT_VISIBLE_TEXT_H_
