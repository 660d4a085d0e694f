// The two stored lists: any stored text reads as rows that are written and
// read back unchanged, and the dialogs hand the conversion the same rows
// whether they come fresh from the store or from the last load.

#include <algorithm>

#include "fuzz_input.h"
#include "lists/stored_lists.h"
#include "lists/stored_rows.h"
#include "platform/memory/memory_registry.h"
#include "platform/memory/scripted_ui.h"
#include "text/text_ops.h"

namespace tessaly {
namespace {

// A replace row the stored text can hold: its texts split back apart at the
// one " >> " between them. A formatting row is one text.
bool Holdable(const ReplaceEntry& row) {
  const std::string joined = row.find + std::string(kPairMark) + row.replacement;
  const auto parts = text::Split(joined, kPairMark);
  return parts.size() == 2 && parts[0] == row.find && parts[1] == row.replacement;
}
bool Holdable(const FormattingEntry&) { return true; }

template <typename Row>
void CheckLoads(SettingsStore& store, Ui& ui, void (StoredLists::*load)(std::vector<Row>&)) {
  StoredLists cached(store, ui);
  std::vector<Row> first, second, fresh;
  (cached.*load)(first);  // writes the canonical text back
  (cached.*load)(second);
  (StoredLists(store, ui).*load)(fresh);
  FUZZ_CHECK(fresh == second);
  // A list left with no rows is stored empty, which the store reads as the
  // default: the formatting list then comes back as its built-in rows.
  if (!first.empty() && std::all_of(first.begin(), first.end(), [](const Row& r) { return Holdable(r); })) {
    FUZZ_CHECK(second == first);
  }
}

}  // namespace
}  // namespace tessaly

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessaly;
  const std::string stored(reinterpret_cast<const char*>(data), size);
  const std::vector<StoredRow> rows = ParseStoredRows(stored);
  const std::string canonical = FormatStoredRows(rows);
  FUZZ_CHECK(ParseStoredRows(canonical) == rows);
  FUZZ_CHECK(FormatStoredRows(ParseStoredRows(canonical)) == canonical);
  for (const StoredRow& row : rows) FUZZ_CHECK(!HoldsSeparator(row.text));

  MemoryRegistry registry;
  SettingsStore store(registry);
  ScriptedUi ui;
  for (std::string_view name : {"ReplaceList", "FormattingList"}) {
    store.SaveProgramSetting("Settings", name, SettingValue::FromText(stored));
  }
  CheckLoads<ReplaceEntry>(store, ui, &StoredLists::LoadReplaceList);
  CheckLoads<FormattingEntry>(store, ui, &StoredLists::LoadFormattingList);
  return 0;
}
