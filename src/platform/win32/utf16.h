#ifndef TESSALY_PLATFORM_WIN32_UTF16_H_
#define TESSALY_PLATFORM_WIN32_UTF16_H_

#include <string>
#include <string_view>

// The core speaks UTF-8; the wide-character Win32 calls speak UTF-16. Texts
// cross between the two here, and only here.
namespace tessaly::win32 {

// Every byte is converted, NULs included, so a multi-text keeps its
// separators. A byte that is not valid UTF-8 becomes U+FFFD.
std::wstring Widen(std::string_view utf8);

// A lone surrogate becomes U+FFFD.
std::string Narrow(std::wstring_view utf16);

}  // namespace tessaly::win32

#endif  // TESSALY_PLATFORM_WIN32_UTF16_H_
