#ifndef TESSALY_WIZARD_LAYOUT_WINDOWS_H_
#define TESSALY_WIZARD_LAYOUT_WINDOWS_H_

// What the wizard's windows hold and how it sits, described once (see
// layout.h): the five pages inside the wizard's frame, the two list dialogs
// and the progress window. Each description points at the controls of the
// form it is built for, which must outlive it.

#include <functional>
#include <string>
#include <vector>

#include "files/drop_data.h"
#include "lists/replace_advanced.h"
#include "lists/unwanted_formatting.h"
#include "wizard/layout/layout.h"
#include "wizard/progress_form.h"
#include "wizard/tessaly_form.h"

namespace tessaly::layout {

// A step's page: a heading band over the body, a rule between them.
struct Page {
  std::string name;  // "pStep1"
  Item heading;      // a kText, looked as the page's heading band
  Item body;
  bool takesDrops = false;  // the page itself, where no control covers it
  // Where dropped files go, for the page and the items that take drops.
  std::function<void(const DropData&)> drop;
};

// The wizard's window: the strip of step labels down the left, the page of
// the step on show beside it, the buttons below.
struct WizardWindow {
  std::vector<Item> steps;  // top to bottom; a click is the label's click
  std::vector<Page> pages;  // by step index
  Item buttons;
  std::string defaultButton;  // what Return that no control takes clicks
  std::string cancelButton;   // what Escape clicks
  Size size;                  // it opens at least this big
};

// A dialog or small window of its own.
struct Dialog {
  std::string name;  // the form's
  Item body;
  std::string defaultButton;  // empty: none
  Size size;                  // it opens at least this big
};

WizardWindow DescribeWizard(fTessaly& form);
Dialog DescribeReplaceAdvanced(fReplaceAdvanced& form);
Dialog DescribeUnwantedFormatting(fUnwantedFormatting& form);
Dialog DescribeProgress(fProgress& form);

}  // namespace tessaly::layout

#endif  // TESSALY_WIZARD_LAYOUT_WINDOWS_H_
