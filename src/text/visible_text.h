#ifndef TESSALY_TEXT_VISIBLE_TEXT_H_
#define TESSALY_TEXT_VISIBLE_TEXT_H_

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
// control characters as "\n", "\r", "\t" or "\x1b", the C1 controls and
// the marks that turn the direction of writing as "\u0085" or "\u202e",
// and a byte that is no UTF-8 as "\xff". Everything else is kept.
std::string Visible(std::string_view text, Layout layout);

}  // namespace tessaly::text

#endif  // TESSALY_TEXT_VISIBLE_TEXT_H_
