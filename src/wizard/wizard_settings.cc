// The check boxes of step 2 that are remembered between runs.

#include "wizard/remembered_boxes.h"
#include "wizard/tessaly_form.h"

namespace tessaly {

namespace {

constexpr std::string_view kSection = "Settings";

}  // namespace

void fTessaly::SaveWizardSettings() {
  for (const RememberedBox& remembered : kRememberedBoxes) {
    services_.store.SaveProgramSetting(
        kSection, remembered.name, SettingValue::FromInt16((this->*remembered.box).value()));
  }
}

void fTessaly::LoadWizardSettings() {
  for (const RememberedBox& remembered : kRememberedBoxes) {
    const SettingValue stored = services_.store.GetProgramSetting(
        kSection, remembered.name, SettingValue::FromInt16(remembered.defaultState));
    // Only this program writes these, so they hold 0, 1 or 2; anything else
    // was edited by hand and counts as missing.
    const std::int32_t state = stored.AsWholeNumber();
    const bool usable = stored.IsWholeNumber() && state >= kUnchecked && state <= kGrayed;
    (this->*remembered.box)
        .SetValue(usable ? static_cast<CheckState>(state) : remembered.defaultState);
  }
}

CheckBox* fTessaly::RememberedCheckBox(std::string_view name) {
  for (const RememberedBox& remembered : kRememberedBoxes) {
    if (remembered.name == name) return &(this->*remembered.box);
  }
  return nullptr;
}

}  // namespace tessaly
