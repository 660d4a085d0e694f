#include "lists/replace_advanced.h"

#include "conversion/placement.h"
#include "lists/stored_rows.h"
#include "text/text_ops.h"

namespace tessaly {

namespace {

constexpr std::string_view kSection = "Settings";
constexpr std::string_view kValueName = "ReplaceList";

}  // namespace

fReplaceAdvanced::fReplaceAdvanced(SettingsStore& store, Ui& ui)
    : Form("fReplaceAdvanced", "Advanced Replace"), store_(store), ui_(ui) {
  cboBatch[0].SetCaption("Replace:");
  cboBatch[1].SetCaption("With");
  cmdAdd.SetCaption("Add");
  lstReplace.SetCaption("Replace List:");
  cmdClear.SetCaption("Clear All");
  cmdRemoveSelected.SetCaption("Remove Selected");
  cmdAccept.SetCaption("Accept");
  lNorm.SetVisible(false);
  lNew.SetVisible(false);

  cmdAdd.onClick = [this] { cmdAdd_Click(); };
  cmdClear.onClick = [this] { cmdClear_Click(); };
  cmdRemoveSelected.onClick = [this] { cmdRemoveSelected_Click(); };
  cmdAccept.onClick = [this] { Unload(); };
  lstReplace.onClick = [this] { lstReplace_Click(); };
}

void fReplaceAdvanced::Form_Load() {
  for (ComboBox& box : cboBatch) {
    for (std::string_view item : kPlacementItems) box.AddItem(std::string(item));
  }
  LoadValues();
  LoadPreviewList();
}

void fReplaceAdvanced::Form_QueryUnload() { SaveValues(); }

void fReplaceAdvanced::LoadValues() {
  lstReplace.Clear();
  lNew.Clear();
  lNorm.Clear();
  const SettingValue stored =
      store_.GetProgramSetting(kSection, kValueName, SettingValue::FromText(""));
  for (const StoredRow& row : ParseStoredRows(stored.AsText())) {
    const auto parts = text::Split(row.text, kPairMark);
    lNorm.AddItem(parts.empty() ? "" : std::string(parts[0]));
    const std::size_t index = lNorm.NewIndex();
    lNew.AddItem(parts.size() > 1 ? std::string(parts[1]) : "");
    lNorm.SetChecked(index, row.checked);
  }
}

void fReplaceAdvanced::LoadPreviewList() {
  lstReplace.Clear();
  for (std::size_t i = 0; i < lNorm.ListCount(); ++i) {
    lstReplace.AddItem(std::string(lNorm.List(i)).append(kPairMark).append(lNew.List(i)));
    lstReplace.SetChecked(i, lNorm.Checked(i));
  }
}

void fReplaceAdvanced::SaveValues() {
  std::vector<StoredRow> rows;
  for (std::size_t i = 0; i < lstReplace.ListCount(); ++i) {
    rows.push_back({std::string(lstReplace.List(i)), lstReplace.Checked(i)});
  }
  store_.SaveProgramSetting(kSection, kValueName, SettingValue::FromText(FormatStoredRows(rows)));
}

std::vector<ReplaceEntry> fReplaceAdvanced::Rows() const {
  std::vector<ReplaceEntry> rows;
  for (std::size_t i = 0; i < lNorm.ListCount(); ++i) {
    rows.push_back({std::string(lNorm.List(i)), std::string(lNew.List(i)), lNorm.Checked(i)});
  }
  return rows;
}

void fReplaceAdvanced::cmdAdd_Click() {
  // A separator inside a text would split the row when it is read back.
  if (HoldsSeparator(cboBatch[0].text()) || HoldsSeparator(cboBatch[1].text())) {
    ui_.MessageBox(kSeparatorRefusal, MessageButtons::kOk, caption());
    return;
  }
  lNorm.AddItemAt(cboBatch[0].text(), 0);
  lNew.AddItemAt(cboBatch[1].text(), 0);
  lNorm.SetChecked(0, true);
  LoadPreviewList();
}

void fReplaceAdvanced::lstReplace_Click() {
  const int row = lstReplace.ListIndex();
  if (row < 0) return;
  const auto index = static_cast<std::size_t>(row);
  lNorm.SetChecked(index, lstReplace.Checked(index));
}

void fReplaceAdvanced::cmdRemoveSelected_Click() {
  const int row = lstReplace.ListIndex();
  if (row < 0) return;
  const auto index = static_cast<std::size_t>(row);
  lNorm.RemoveItem(index);
  lNew.RemoveItem(index);
  lstReplace.RemoveItem(index);
}

void fReplaceAdvanced::cmdClear_Click() {
  lNorm.Clear();
  lNew.Clear();
  lstReplace.Clear();
}

}  // namespace tessaly
