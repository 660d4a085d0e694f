#include "files/open_dialog.h"

#include "conversion/path_routines.h"
#include "text/text_ops.h"

namespace tessaly {

namespace {

const std::string kZero(1, '\0');

// The answer up to its closing pair of zero characters. Cutting the
// buffer's last two characters instead would take the last name's zero
// from an answer that fills the buffer to its end, and lose that name.
std::string_view AnswerBlock(std::string_view buffer) {
  const std::size_t end = buffer.find(std::string_view("\0\0", 2));
  return end == std::string_view::npos ? buffer.substr(0, buffer.size() - 2)
                                       : buffer.substr(0, end + 2);
}

// The folder, then each name with the folder in front, joined by ";".
std::string PathsOfMultipleSelection(const std::string& buffer) {
  std::string block(text::TrimBlanks(AnswerBlock(buffer)));
  std::string folder;
  std::string result;
  int pieces = 0;
  // Fewer than 4 characters left is the block's end; it also drops a last
  // name of one character.
  while (block.size() >= 4) {
    std::string piece = NextToken(block, kZero);
    if (piece.empty()) break;  // no separator left: nothing more to take
    const std::string name = NextNullPiece(piece);
    if (!name.empty()) {
      if (pieces == 0) {
        folder = WithTrailingBackslash(name);
      } else {
        if (!result.empty()) result += ';';
        result += folder + name;
      }
    }
    ++pieces;
  }
  return result;
}

}  // namespace

std::string NextToken(std::string& text, std::string_view separator) {
  const std::size_t found = text.find(separator);
  if (found == std::string::npos) return "";
  std::string piece = text.substr(0, found + separator.size());
  text.erase(0, found + separator.size());
  return piece;
}

std::string NextNullPiece(std::string& text) {
  std::string piece = NextToken(text, kZero);
  if (!piece.empty()) piece.pop_back();
  return piece;
}

std::string ShowOpenDialog(Ui& ui, std::string_view filter, std::string_view defaultExtension,
                           std::string_view initialDirectory, std::uint32_t flags) {
  const OpenFileAnswer answer = ui.ShowOpenFileDialog(
      {std::string(filter), std::string(defaultExtension), std::string(initialDirectory), flags});
  if (!answer.accepted || answer.buffer.size() < 2) return "";
  if (answer.extensionOffset != 0) return answer.buffer.substr(0, answer.buffer.find('\0'));
  return PathsOfMultipleSelection(answer.buffer);
}

}  // namespace tessaly
