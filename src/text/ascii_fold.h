#ifndef TESSALY_TEXT_ASCII_FOLD_H_
#define TESSALY_TEXT_ASCII_FOLD_H_

#include <string>
#include <string_view>

namespace tessaly::text {

// Puts `text` with its letters folded into `folded` and returns true, if
// `text` is plain ASCII, the common case for paths, which needs no
// decoding; returns false, with `folded` unspecified, for any other text.
inline bool FoldAscii(std::string_view text, std::string& folded) {
  folded.assign(text);
  for (char& c : folded) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x80) return false;
    if (byte >= 'A' && byte <= 'Z') c = static_cast<char>(byte + 32);
  }
  return true;
}

}  // namespace tessaly::text

#endif  // TESSALY_TEXT_ASCII_FOLD_H_
