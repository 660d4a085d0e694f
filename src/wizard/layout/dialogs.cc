// The two list dialogs and the progress window.

#include <string>

#include "wizard/layout/windows.h"

namespace tessaly::layout {

Dialog DescribeReplaceAdvanced(fReplaceAdvanced& form) {
  std::vector<Item> cells;
  for (int i = 0; i < 2; ++i) {
    const std::string name = "cboBatch" + std::to_string(i);
    cells.push_back(CaptionOf(&form.cboBatch[i], name, i == 0 ? "r" : "w").At(0, i));
    cells.push_back(Combo(form.cboBatch[i], name).Chars(18).Lines(20).At(1, i));
  }
  cells.push_back(Button(form.cmdAdd, "cmdAdd", "a").At(1, 2));
  cells.push_back(CaptionOf(&form.lstReplace, "lstReplace", "l").At(2, 0, 1, 2));
  cells.push_back(CheckList(form.lstReplace, "lstReplace").AtLeast(0, 114).At(3, 0, 1, 2));
  cells.push_back(Column({Button(form.cmdClear, "cmdClear", "c"),
                          Button(form.cmdRemoveSelected, "cmdRemoveSelected", "s"), Stretch()})
                      .At(3, 2));
  cells.push_back(Button(form.cmdAccept, "cmdAccept", "e").At(4, 2));
  return {
      form.name(), Grid(std::move(cells)).Spaced(5, 3).StretchColumns({1, 1, 0}), "cmdAccept", {}};
}

// A heading on a sheet, a band, the two edit rows beside the list, and
// Finished below.
Dialog DescribeUnwantedFormatting(fUnwantedFormatting& form) {
  Item top = Panel("", Column({Text(form.lblHeading, "lblHeading").Styled(Look::kTitle),
                               Text(form.lblDescription, "lblDescription").Wrapping()})
                           .Margined(7, 6, 7, 6))
                 .Styled(Look::kSheet);
  Item edits = Column(
      {CaptionOf(&form.txtAdd, "txtAdd", "c"),
       Row({Edit(form.txtAdd, "txtAdd").Grow(1), Button(form.cmdAdd, "cmdAdd", "a")}), Space(5),
       Line(), Space(5),
       Row({Edit(form.txtEdit, "txtEdit").Spoken("Selected entry").Grow(1),
            Button(form.cmdUpdate, "cmdUpdate", "u")}),
       Stretch()});
  Item list = Column({CaptionOf(&form.lstRemove, "lstRemove", "l"),
                      CheckList(form.lstRemove, "lstRemove").AtLeast(0, 103).Grow(1),
                      Button(form.cmdRemove, "cmdRemove", "r").Aligned(Align::kRight)});
  Item body =
      Column({std::move(top), Text(form.lblCommonSettings, "lblCommonSettings").Styled(Look::kBand),
              Row({std::move(edits).Grow(1), std::move(list).Grow(1)})
                  .Margined(7, 6, 7, 0)
                  .Spaced(8, -1)
                  .Grow(1),
              Row({Stretch(), Button(form.cmdExit, "cmdExit", "f")}).Margined(7, 6, 7, 0)})
          .Margined(0, 0, 0, 6)
          .Spaced(0, 0);
  return {form.name(), std::move(body), "", {354, 240}};
}

// The trough, 6135 twips wide at design.
Dialog DescribeProgress(fProgress& form) {
  Item bar = Progress(form.lTotal, "lTotal", Text(form.lCur, "lCur"),
                      Text(form.lCaption, "lCaption").Styled(Look::kBold).Aligned(Align::kCentre))
                 .Sized(234, 14);
  return {form.name(), Column({std::move(bar)}).Margined(9, 9, 9, 9), "", {}};
}

}  // namespace tessaly::layout
