#include "lists/stored_lists.h"

#include "lists/replace_advanced.h"
#include "lists/unwanted_formatting.h"

namespace tessaly {

namespace {

constexpr std::string_view kSection = "Settings";

}  // namespace

template <typename Dialog, typename Row>
void StoredLists::Load(std::string_view valueName, std::optional<Remembered<Row>>& remembered,
                       std::vector<Row>& rows) {
  // Nothing as the default: a missing value takes the full road, whose
  // unload stores the dialog's own default.
  const SettingValue before = store_.GetProgramSetting(kSection, valueName);
  if (remembered && before.IsText() && before.AsText() == remembered->stored) {
    rows = remembered->rows;
    return;
  }
  Dialog form(store_, ui_);
  form.Load();
  rows = form.Rows();
  form.Unload();
  const SettingValue after = store_.GetProgramSetting(kSection, valueName);
  if (before.IsText() && after == before) {
    remembered = Remembered<Row>{before.AsText(), rows};
  } else {
    remembered.reset();
  }
}

void StoredLists::LoadReplaceList(std::vector<ReplaceEntry>& rows) {
  Load<fReplaceAdvanced>("ReplaceList", replace_, rows);
}

void StoredLists::LoadFormattingList(std::vector<FormattingEntry>& rows) {
  Load<fUnwantedFormatting>("FormattingList", formatting_, rows);
}

}  // namespace tessaly
