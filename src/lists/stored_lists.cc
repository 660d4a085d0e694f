#include "lists/stored_lists.h"

#include "lists/replace_advanced.h"
#include "lists/unwanted_formatting.h"

namespace tessaly {

namespace {

template <typename Dialog>
auto RowsOfHiddenForm(SettingsStore& store, Ui& ui) {
  Dialog form(store, ui);
  form.Load();
  auto rows = form.Rows();
  form.Unload();
  return rows;
}

}  // namespace

std::vector<ReplaceEntry> StoredLists::LoadReplaceList() {
  return RowsOfHiddenForm<fReplaceAdvanced>(store_, ui_);
}

std::vector<FormattingEntry> StoredLists::LoadFormattingList() {
  return RowsOfHiddenForm<fUnwantedFormatting>(store_, ui_);
}

}  // namespace tessaly
