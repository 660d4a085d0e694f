// The live example of step 2 and the rules that keep its options sensible.

#include <cmath>

#include "conversion/path_routines.h"
#include "conversion/sample_paths.h"
#include "lists/replace_advanced.h"
#include "lists/unwanted_formatting.h"
#include "wizard/tessaly_form.h"
#include "wizard/wizard_texts.h"

namespace tessaly {

void fTessaly::ShowExample() {
  serial_ = 0;
  std::string example;
  for (const std::string* sample : {&SamplePath1, &SamplePath2, &SamplePath3}) {
    std::string converted = Convert(*sample);
    if (chkIncludePaths.value() == kUnchecked) {
      converted = FileNameOf(converted, 2, services_.ui);
    }
    if (sample != &SamplePath1) example += kLineEnd;
    example += services_.fileSystem.Shown(converted);
  }
  txtExample.SetText(std::move(example));
}

void fTessaly::SetSamplePaths(std::string_view one, std::string_view two,
                              std::string_view three) {
  SamplePath1 = one;
  SamplePath2 = two;
  SamplePath3 = three;
}

void fTessaly::cboBatch_Change(int index) {
  ComboBox& box = cboBatch[index];
  if (!box.tag().empty()) return;
  if (box.text() == "(none)") box.SetText("");
  if (index == 6 || index == 7) {
    if (box.text() == "(Advanced)") {
      for (int pair : {6, 7}) {
        cboBatch[pair].SetTag("x");
        cboBatch[pair].SetText("(Advanced)");
        cboBatch[pair].SetTag("");
      }
      services_.ui.LetPendingEventsRun();
      cmdReplaceAdv.SetVisible(true);
      cmdReplaceAdv2.SetVisible(true);
      ShowReplaceDialog();
    } else {
      cmdReplaceAdv.SetVisible(false);
      cmdReplaceAdv2.SetVisible(false);
    }
  }
  ShowExample();
}

void fTessaly::ShowListDialog(Form& dialog) {
  dialog.Load();
  services_.ui.ShowModal(dialog);
  dialog.Unload();
}

void fTessaly::ShowReplaceDialog() {
  fReplaceAdvanced dialog(services_.store, services_.ui);
  ShowListDialog(dialog);
}

void fTessaly::ShowFormattingDialog() {
  fUnwantedFormatting dialog(services_.store, services_.ui);
  ShowListDialog(dialog);
}

void fTessaly::cmdReplaceAdv_Click() {
  ShowReplaceDialog();
  ShowExample();
}

void fTessaly::cmdUnwantedFormat_Click() {
  ShowFormattingDialog();
  ShowExample();
}

void fTessaly::chkUpperCase_Click() {
  if (chkUpperCase.value() == kChecked) chkLowercase.SetValue(kUnchecked);
  ShowExample();
}

void fTessaly::chkLowercase_Click() {
  if (chkLowercase.value() == kChecked) chkUpperCase.SetValue(kUnchecked);
  ShowExample();
}

void fTessaly::chkLongExtension_Click() {
  if (chkLongExtension.value() == kChecked) chkShortExtension.SetValue(kUnchecked);
  ShowExample();
}

void fTessaly::chkShortExtension_Click() {
  if (chkShortExtension.value() == kChecked) chkLongExtension.SetValue(kUnchecked);
  ShowExample();
}

void fTessaly::chkRemoveu_Click() {
  if (chkRemoveu.value() == kChecked) chkAllowSpaces.SetValue(kChecked);
  ShowExample();
}

void fTessaly::chkAllowSpaces_Click() {
  // Without spaces, "Replace _ with spaces" is greyed rather than cleared,
  // so it comes back when spaces are allowed again.
  if (chkAllowSpaces.value() == kChecked && chkRemoveu.value() == kGrayed) {
    chkRemoveu.SetValue(kChecked);
  }
  if (chkAllowSpaces.value() == kUnchecked && chkRemoveu.value() == kChecked) {
    chkRemoveu.SetValue(kGrayed);
  }
  ShowExample();
}

void fTessaly::chkRealFiles_Click() {
  const auto n = static_cast<std::int32_t>(lstFiles.ListCount());
  services_.random.Randomize(12);
  if (n > 3 && chkRealFiles.value() == kGrayed) chkRealFiles.SetValue(kChecked);
  if (chkRealFiles.value() == kChecked) {
    if (n < 3) {
      chkRealFiles.SetValue(kGrayed);  // runs this rule again, which ends below
    } else {
      std::array<std::string, 3> drawn;
      for (std::string& path : drawn) {
        // nearbyint takes a half to the even neighbour.
        const auto line = static_cast<std::size_t>(
            std::nearbyint(services_.random.Rnd() * static_cast<double>(n - 1)));
        path = lstFiles.List(line);
      }
      SetSamplePaths(drawn[0], drawn[1], drawn[2]);
    }
  }
  if (chkRealFiles.value() != kChecked) {
    SetSamplePaths(kBuiltInSamples[0], kBuiltInSamples[1], kBuiltInSamples[2]);
  }
  ShowExample();
}

}  // namespace tessaly
