#include "conversion/split_token.h"

#include "text/text_ops.h"
#include "text/whole_number.h"

namespace tessaly {

namespace {

// The piece at `index` of `text` cut at `separator`, if there is one.
std::optional<std::string_view> PieceAt(std::string_view text, std::string_view separator,
                                        std::size_t index) {
  const auto pieces = text::Split(text, separator);
  if (index >= pieces.size()) return std::nullopt;
  return pieces[index];
}

}  // namespace

std::optional<std::string> ResolveSplitToken(std::string_view token, std::string_view path) {
  const auto arguments = PieceAt(token, "plit(", 1);
  if (!arguments) return std::nullopt;
  const auto separator = PieceAt(*arguments, ",", 0);
  if (!separator) return std::nullopt;
  const auto afterComma = PieceAt(token, ",", 1);
  if (!afterComma) return std::nullopt;
  const auto field = PieceAt(*afterComma, ")", 0);
  if (!field) return std::nullopt;
  const auto n = text::ParseInteger16(*field);
  if (!n || *n < 1) return std::nullopt;
  const auto piece = PieceAt(path, *separator, static_cast<std::size_t>(*n - 1));
  if (!piece) return std::nullopt;
  return std::string(*piece);
}

}  // namespace tessaly
