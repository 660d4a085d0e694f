// ConvertName over random options, placements and lists: with "Include
// Path" clear the folder comes out byte for byte, every byte of the result
// has a source, and the same call gives the same path.

#include <algorithm>
#include <bitset>
#include <cctype>

#include "conversion/name_converter.h"
#include "conversion/path_routines.h"
#include "conversion/placement.h"
#include "fuzz_input.h"
#include "platform/memory/fixed_clock.h"
#include "platform/memory/fixed_locale.h"
#include "platform/memory/memory_file_system.h"

namespace tessaly {
namespace {

constexpr std::string_view kFolders[] = {"C:\\dest", "C:\\dest\\", "c:\\DEST", "C:\\none"};
constexpr std::string_view kReplaceWords[] = {"(Advanced)", "Document Name", "extension", ""};

ConversionOptions RandomOptions(FuzzedDataProvider& in) {
  ConversionOptions options;
  for (CheckState* box : {&options.chkRemoveNumbers, &options.chkFormatting,
                          &options.chkLongExtension, &options.chkShortExtension, &options.chkExtra,
                          &options.chkRemoveu, &options.chkRemoveDoubleSpace,
                          &options.chkAllowSpaces, &options.chkCapitalize, &options.chkUpperCase,
                          &options.chkLowercase, &options.chkFixSpacing, &options.chkIncludePaths}) {
    *box = in.ConsumeIntegralInRange<CheckState>(0, 2);
  }
  for (std::string& box : options.cboBatch) box = fuzz::WordOrText(in, kPlacementItems);
  options.cboBatch[6] = fuzz::WordOrText(in, kReplaceWords);
  options.optMoveNewFolder = in.ConsumeBool();
  options.lFolder = fuzz::WordOrText(in, kFolders);
  for (std::string& find : fuzz::Texts(in, 3)) options.ReplaceList.push_back({find, fuzz::Text(in)});
  for (const std::string& text : fuzz::Texts(in, 3)) options.FormattingList.push_back({text, true});
  // A run counts at most 32767 files; a serial letter writes a "z" per 26.
  options.serial = in.ConsumeIntegralInRange<std::int32_t>(-1, 40000);
  return options;
}

// The bytes a result may hold: the inputs', and what stages and tokens write
// (letters, digits, " ._-\\", date separators; any non-ASCII byte once case
// mapping meets one).
std::bitset<256> AllowedBytes(const ConversionOptions& options, std::string_view source) {
  std::string inputs = std::string(source) + options.lFolder + " ._-\\/:";
  for (const std::string& box : options.cboBatch) inputs += box;
  for (const ReplaceEntry& row : options.ReplaceList) inputs += row.find + row.replacement;
  for (const FormattingEntry& row : options.FormattingList) inputs += row.text;
  const bool high = std::any_of(inputs.begin(), inputs.end(), [](char c) { return c & 0x80; });
  std::bitset<256> allowed;
  for (unsigned char c : inputs) allowed.set(c);
  for (int c = 0; c < 0x100; ++c) allowed[c] = allowed[c] || std::isalnum(c) || (c >= 0x80 && high);
  return allowed;
}

}  // namespace
}  // namespace tessaly

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessaly;
  FuzzedDataProvider in(data, size);
  ConversionOptions options = RandomOptions(in), again = options;
  const std::string source = in.ConsumeRemainingBytesAsString();
  const FixedClock clock(CivilDate{2026, 11, 18});
  const FixedLocale locale;
  MemoryFileSystem files;
  files.AddDirectory("C:\\dest");
  const NameConverter converter({clock, locale, files});
  const std::string result = converter.ConvertName(options, source);
  FUZZ_CHECK(converter.ConvertName(again, source) == result && options.serial == again.serial);
  if (options.chkIncludePaths != kChecked) {
    const bool moved = options.optMoveNewFolder && DirectoryExists(options.lFolder, files);
    FUZZ_CHECK(result.starts_with(WithTrailingBackslash(moved ? options.lFolder : FolderPart(source))));
  }
  const std::bitset<256> allowed = AllowedBytes(options, source);
  FUZZ_CHECK(std::all_of(result.begin(), result.end(), [&](unsigned char c) { return allowed[c]; }));
  return 0;
}
