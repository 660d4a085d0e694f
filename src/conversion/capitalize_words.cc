#include "conversion/text_rules.h"

#include <vector>

#include "text/case_mapping.h"
#include "text/text_ops.h"

namespace tessaly {

namespace {

std::string CapitalizePieces(std::string_view text, std::string_view separator,
                             text::RestOfWord rest) {
  std::vector<std::string> pieces;
  for (std::string_view piece : text::Split(text, separator)) {
    pieces.push_back(text::CapitalizeFirst(piece, rest));
  }
  return text::Join(pieces, separator);
}

}  // namespace

std::string CapitalizeWords(std::string_view text) {
  if (text.empty()) return {};
  std::string out = CapitalizePieces(text, " ", text::RestOfWord::kLower);
  out = CapitalizePieces(out, "/", text::RestOfWord::kUnchanged);
  out = CapitalizePieces(out, "\\", text::RestOfWord::kUnchanged);
  for (auto [word, lowered] : {std::pair{" Of ", " of "}, {" The ", " the "},
                               {" And ", " and "}, {" Or ", " or "}}) {
    text::ReplaceAllIn(out, word, lowered);
  }
  return out;
}

}  // namespace tessaly
