#ifndef TESSALY_FUZZ_FUZZ_INPUT_H_
#define TESSALY_FUZZ_FUZZ_INPUT_H_

// What the fuzz targets share: the fuzzer's bytes read as texts and picks,
// and a check that ends the run when a property breaks (libFuzzer then
// keeps the input as a crash).

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#define FUZZ_CHECK(condition) \
  ((condition) ? void(0) : ::tessaly::fuzz::Broken(#condition, __FILE__, __LINE__))

namespace tessaly::fuzz {

[[noreturn]] inline void Broken(const char* property, const char* file, int line) {
  std::fprintf(stderr, "%s:%d: property broken: %s\n", file, line, property);
  std::abort();
}

inline std::string Text(FuzzedDataProvider& in, std::size_t most = 48) {
  return in.ConsumeRandomLengthString(most);
}

// Up to `most` texts.
inline std::vector<std::string> Texts(FuzzedDataProvider& in, std::size_t most) {
  std::vector<std::string> texts(in.ConsumeIntegralInRange<std::size_t>(0, most));
  for (std::string& text : texts) text = Text(in);
  return texts;
}

// One of `words` or a text of the fuzzer's own: the words reach the
// code's branches, the free texts its corners.
template <typename Words>
std::string WordOrText(FuzzedDataProvider& in, const Words& words) {
  if (in.ConsumeBool()) return std::string(in.PickValueInArray(words));
  return Text(in);
}

inline bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

}  // namespace tessaly::fuzz

#endif  // TESSALY_FUZZ_FUZZ_INPUT_H_
