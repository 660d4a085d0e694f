#ifndef TESSALY_TEXT_UTF8_H_
#define TESSALY_TEXT_UTF8_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace tessaly::text {

// Texts are UTF-8. A byte that does not start a valid sequence is one
// character of its own, decoded to kInvalidByteBase + byte, a value outside
// Unicode, so it never equals a real character and is never case-mapped.
inline constexpr char32_t kInvalidByteBase = 0x110000;

struct DecodedChar {
  char32_t code;       // the character, or kInvalidByteBase + byte
  std::size_t length;  // bytes it takes in the text, at least 1
};

// Decodes the character that starts at `pos` (pos < text.size()).
DecodedChar DecodeAt(std::string_view text, std::size_t pos);

// Whether a character of `text` starts at `pos` (or `pos` is its end):
// false only inside a multi-byte character. Texts are decoded from their
// start, and a stray byte is a character of its own.
// Whether `byte` is 10xxxxxx, the form of every byte of a character but
// its first.
inline bool IsContinuationByte(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

bool IsCharBoundarySlow(std::string_view text, std::size_t pos);
inline bool IsCharBoundary(std::string_view text, std::size_t pos) {
  // Only a continuation byte can be inside a character; checked inline, as
  // every exact match asks this twice.
  return pos >= text.size() || !IsContinuationByte(text[pos]) || IsCharBoundarySlow(text, pos);
}

// Appends `code` to `out`: UTF-8 for a real character, the original byte
// for an invalid one.
void AppendChar(std::string& out, char32_t code);

// Appends `code` in UTF-8's layout, codes past Unicode included, so that
// byte order of the result is code order.
void AppendUtf8Layout(std::string& out, char32_t code);

// The byte `characters` characters on from the character starting at
// `byte`, or the end of `text`: how a view walks from its model's character
// counts to the bytes it draws.
std::size_t ByteAfterChars(std::string_view text, std::size_t byte, std::size_t characters);

// Number of characters in `text`; each invalid byte counts as one.
std::size_t CharCount(std::string_view text);

}  // namespace tessaly::text

#endif  // TESSALY_TEXT_UTF8_H_
