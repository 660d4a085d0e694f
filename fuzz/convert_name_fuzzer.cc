// ConvertName over random options, placements and lists: with "Include
// Path" clear the folder comes out byte for byte, every byte of the result
// has a source, and the same call gives the same path.

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
  for (std::size_t i = 0; i < 6; ++i) options.cboBatch[i] = fuzz::WordOrText(in, kPlacementItems);
  options.cboBatch[6] = fuzz::WordOrText(in, kReplaceWords);
  options.cboBatch[7] = fuzz::WordOrText(in, kPlacementItems);
  options.optMoveNewFolder = in.ConsumeBool();
  options.lFolder = fuzz::WordOrText(in, kFolders);
  for (const std::string& find : fuzz::Texts(in, 3)) {
    options.ReplaceList.push_back({find, fuzz::Text(in), in.ConsumeBool()});
  }
  for (const std::string& text : fuzz::Texts(in, 3)) options.FormattingList.push_back({text, true});
  // A run counts at most the list's 32767 files; a serial letter writes a
  // "z" for every 26, so far larger counts only measure memory.
  options.serial = in.ConsumeIntegralInRange<std::int32_t>(-1, 40000);
  return options;
}

// The bytes a result may hold: those of the inputs, and what the stages and
// tokens write themselves (letters and digits, blanks, periods, underscores,
// dashes, backslashes, date separators; any non-ASCII byte once case mapping
// meets one).
std::bitset<256> AllowedBytes(const ConversionOptions& options, std::string_view source) {
  std::string inputs = std::string(source) + options.lFolder + " ._-\\/:";
  for (const std::string& box : options.cboBatch) inputs += box;
  for (const ReplaceEntry& row : options.ReplaceList) inputs += row.find + row.replacement;
  for (const FormattingEntry& row : options.FormattingList) inputs += row.text;
  std::bitset<256> allowed;
  for (unsigned char c : inputs) {
    allowed.set(c);
    if (c >= 0x80) for (int high = 0x80; high < 0x100; ++high) allowed.set(high);
  }
  for (int c = 0; c < 0x80; ++c) allowed[c] = allowed[c] || std::isalnum(c);
  return allowed;
}

}  // namespace
}  // namespace tessaly

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessaly;
  FuzzedDataProvider in(data, size);
  ConversionOptions options = RandomOptions(in);
  const std::string source = in.ConsumeRemainingBytesAsString();
  const FixedClock clock(CivilDate{2026, 11, 18});
  const FixedLocale locale;
  MemoryFileSystem files;
  files.AddDirectory("C:\\dest");
  const NameConverter converter({clock, locale, files});

  ConversionOptions again = options;
  const std::string result = converter.ConvertName(options, source);
  FUZZ_CHECK(converter.ConvertName(again, source) == result);
  FUZZ_CHECK(options.serial == again.serial);
  if (options.chkIncludePaths != kChecked) {
    const bool moved = options.optMoveNewFolder && DirectoryExists(options.lFolder, files);
    const std::string folder = WithTrailingBackslash(moved ? options.lFolder : FolderPart(source));
    FUZZ_CHECK(result.starts_with(folder));
  }
  const std::bitset<256> allowed = AllowedBytes(options, source);
  for (unsigned char c : result) FUZZ_CHECK(allowed[c]);
  return 0;
}
