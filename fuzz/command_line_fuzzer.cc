// The command line as one text: what the switches read back is what the
// text says, and the wizard driven by it stays on a step it can reach and
// lists only files that exist.

#include <algorithm>
#include <set>

#include "fuzz_input.h"
#include "memory_world.h"
#include "platform/memory/memory_file_system.h"
#include "settings/command_line.h"
#include "text/text_ops.h"

namespace tessaly {
namespace {

namespace cl = command_line;

constexpr std::string_view kFiles[] = {"C:\\d\\a.txt", "C:\\d\\B.TXT", "C:\\d\\sub\\c", "x"};

void CheckReading(std::string_view line) {
  const std::string unquoted = text::ReplaceAll(line, "\"", "");
  if (const auto paths = cl::FilePaths(line)) {
    for (const std::string& path : *paths) {
      FUZZ_CHECK(!fuzz::Contains(path, "\"") && !fuzz::Contains(path, ";"));
      FUZZ_CHECK(!fuzz::Contains(path, "/") && fuzz::Contains(unquoted, path));
    }
  }
  for (int number = 1; number <= 6; ++number) {
    const auto value = cl::PlacementValue(line, number);
    if (!value) continue;
    FUZZ_CHECK(!fuzz::Contains(*value, "\""));
    const std::string written = "/placement" + std::to_string(number) + ":\"" + *value;
    FUZZ_CHECK(fuzz::Contains(line, written));
  }
  const int steps = cl::StepCount(line);
  FUZZ_CHECK(steps >= 0 && steps <= 9 && (steps == 0 || cl::Holds(line, "/step:")));
}

void CheckWizard(const std::string& line) {
  MemoryFileSystem files;
  std::set<std::string> existing;
  for (std::string_view path : kFiles) {
    files.AddFile(path);
    existing.insert(files.SameNameKey(path));
  }
  MemoryWorld world(files);
  fTessaly& wizard = world.Start(line);
  for (std::size_t i = 0; i < wizard.lstFiles.ListCount(); ++i) {
    FUZZ_CHECK(existing.count(files.SameNameKey(wizard.lstFiles.List(i))) == 1);
  }
  const bool barePaths = cl::FilePaths(line).has_value() && !cl::Holds(line, "/");
  const int steps = std::min(cl::StepCount(line), 4);
  FUZZ_CHECK(wizard.CurrentStep == (steps > 0 ? steps : (barePaths ? 1 : 0)));
}

}  // namespace
}  // namespace tessaly

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string line(reinterpret_cast<const char*>(data), size);
  tessaly::CheckReading(line);
  // An empty command line never reaches the reading; the wizard is slow to
  // build, so only lines of a sane size drive it.
  if (!line.empty() && line.size() < 512) tessaly::CheckWizard(line);
  return 0;
}
