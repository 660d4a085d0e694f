#include "lists/unwanted_formatting.h"

#include "lists/stored_rows.h"
#include "text/utf8.h"

namespace tessaly {

namespace {

constexpr std::string_view kSection = "Settings";
constexpr std::string_view kValueName = "FormattingList";

}  // namespace

fUnwantedFormatting::fUnwantedFormatting(SettingsStore& store, Ui& ui)
    : Form("fUnwantedFormatting", "Define 'Unwanted Formatting' Settings"), store_(store), ui_(ui) {
  lblHeading.SetCaption("Define Unwanted Formatting Settings");
  lblDescription.SetCaption(
      "From here you can define how you want this application to treat 'Unwanted "
      "Formatting'.  By defining 'Unwanted Formatting' you will be able to quickly and "
      "effectively remove common formatting errors from your filenames. Remove such things "
      "as unwanted number's, brackets, dates, the dreaded copy of, and any specified words, "
      "numbers, or characters.");
  lblCommonSettings.SetCaption(" Common Settings");
  txtAdd.SetCaption("Add Custom:");
  cmdAdd.SetCaption("Add >>");
  cmdUpdate.SetCaption("Update >>");
  lstRemove.SetCaption("Remove the following:");
  cmdRemove.SetCaption("Remove Selection");
  cmdExit.SetCaption("Finished");

  cmdAdd.onClick = [this] { cmdAdd_Click(); };
  cmdUpdate.onClick = [this] { cmdUpdate_Click(); };
  cmdRemove.onClick = [this] { cmdRemove_Click(); };
  cmdExit.onClick = [this] { Unload(); };
  lstRemove.onClick = [this] { lstRemove_Click(); };
  txtEdit.onGotFocus = [this] { txtEdit_GotFocus(); };
}

void fUnwantedFormatting::LoadValues() {
  lstRemove.Clear();
  const SettingValue stored = store_.GetProgramSetting(
      kSection, kValueName, SettingValue::FromText(std::string(kDefaultFormattingList)));
  for (const StoredRow& row : ParseStoredRows(stored.AsText())) {
    lstRemove.AddItem(row.text);
    lstRemove.SetChecked(lstRemove.NewIndex(), row.checked);
  }
}

void fUnwantedFormatting::SaveValues() {
  std::vector<StoredRow> rows;
  for (std::size_t i = 0; i < lstRemove.ListCount(); ++i) {
    rows.push_back({std::string(lstRemove.List(i)), lstRemove.Checked(i)});
  }
  store_.SaveProgramSetting(kSection, kValueName, SettingValue::FromText(FormatStoredRows(rows)));
}

std::vector<FormattingEntry> fUnwantedFormatting::Rows() const {
  std::vector<FormattingEntry> rows;
  for (std::size_t i = 0; i < lstRemove.ListCount(); ++i) {
    rows.push_back({std::string(lstRemove.List(i)), lstRemove.Checked(i)});
  }
  return rows;
}

bool fUnwantedFormatting::Refused(std::string_view text) {
  if (!HoldsSeparator(text)) return false;
  ui_.MessageBox(kSeparatorRefusal, MessageButtons::kOk, caption());
  return true;
}

void fUnwantedFormatting::cmdAdd_Click() {
  if (Refused(txtAdd.text())) return;
  lstRemove.AddItemAt(txtAdd.text(), 0);
  lstRemove.SetChecked(0, true);
}

void fUnwantedFormatting::cmdUpdate_Click() {
  const int row = lstRemove.ListIndex();
  if (row < 0 || Refused(txtEdit.text())) return;  // nothing to update without a row
  lstRemove.SetList(static_cast<std::size_t>(row), txtEdit.text());
}

void fUnwantedFormatting::cmdRemove_Click() {
  const int row = lstRemove.ListIndex();
  if (row < 0) return;
  lstRemove.RemoveItem(static_cast<std::size_t>(row));
  if (lstRemove.ListCount() > 0) lstRemove.SetListIndex(0);
}

void fUnwantedFormatting::lstRemove_Click() {
  const int row = lstRemove.ListIndex();
  if (row >= 0) txtEdit.SetText(std::string(lstRemove.List(static_cast<std::size_t>(row))));
}

void fUnwantedFormatting::txtEdit_GotFocus() {
  txtEdit.Select(0, text::CharCount(txtEdit.text()));
}

}  // namespace tessaly
