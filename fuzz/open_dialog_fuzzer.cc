// The open dialog's answer: any buffer gives paths without a zero
// character, and a selection shaped as the dialog shapes it comes back as
// exactly the chosen paths (a last name of one character aside, which the
// reading leaves out).

#include "conversion/path_routines.h"
#include "files/open_dialog.h"
#include "fuzz_input.h"
#include "platform/memory/scripted_ui.h"
#include "platform/open_file_answer.h"

namespace tessaly {
namespace {

std::string Answered(OpenFileAnswer answer) {
  ScriptedUi ui;
  ui.QueueOpenFileAnswer(std::move(answer));
  return ShowOpenDialog(ui, kAllFilesFilter, "", "", kAddFilesFlags);
}

bool Choosable(std::string_view name) {
  return !name.empty() && !fuzz::Contains(name, std::string_view("\0", 1)) &&
         !fuzz::Contains(name, ";");
}

void CheckSelection(FuzzedDataProvider& in) {
  const std::string folder = fuzz::Text(in);
  std::vector<std::string> names = fuzz::Texts(in, 5);
  std::erase_if(names, [](const std::string& name) { return !Choosable(name); });
  if (!Choosable(folder) || folder[0] == ' ' || names.empty() || names.back().size() < 2) return;
  std::string expected;
  for (const std::string& name : names) {
    expected += (expected.empty() ? "" : ";") + WithTrailingBackslash(folder) + name;
  }
  const OpenFileAnswer multiple = MultipleFilesAnswer(folder, names);
  FUZZ_CHECK(Answered(multiple) == (multiple.accepted ? expected : ""));
  const OpenFileAnswer single = SingleFileAnswer(folder);
  FUZZ_CHECK(Answered(single) == (single.accepted ? folder : ""));
}

}  // namespace
}  // namespace tessaly

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessaly;
  FuzzedDataProvider in(data, size);
  if (in.ConsumeBool()) {
    CheckSelection(in);
    return 0;
  }
  OpenFileAnswer answer{in.ConsumeBool(), "", in.ConsumeIntegral<std::uint16_t>()};
  answer.buffer = in.ConsumeRemainingBytesAsString();
  const std::string paths = Answered(answer);
  FUZZ_CHECK(!fuzz::Contains(paths, std::string_view("\0", 1)));
  if (!answer.accepted) FUZZ_CHECK(paths.empty());
  if (answer.extensionOffset != 0) FUZZ_CHECK(answer.buffer.starts_with(paths));
  return 0;
}
