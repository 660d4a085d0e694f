// The wizard's window: its step strip, buttons and five pages.

#include <string>

#include "wizard/layout/windows.h"
#include "wizard/wizard_texts.h"

namespace tessaly::layout {

namespace {

std::string Numbered(const char* name, int index) { return name + std::to_string(index); }

Page MakePage(int step, Item heading, std::vector<Item> body) {
  return {Numbered("pStep", step),
          std::move(heading),
          Column(std::move(body)).Margined(8, 6, 8, 3).Spaced(-1, 5),
          false,
          {}};
}

Page WelcomePage(fTessaly& form) {
  return MakePage(
      0, Text(form.pStep[0], ""),
      {Space(5), Text(form.lWelcome, "lWelcome").Wrapping().Aligned(Align::kTopLeft).Grow(1)});
}

// The list, its frame, the heading, the instructions and the page take
// dropped files; nothing else does.
Page FilePage(fTessaly& form) {
  const auto shown = [&form](std::string_view path) { return form.ShownPath(path); };
  Item list = Column({FileList(form.lstFiles, "lstFiles", shown)
                          .Spoken("Files to rename")
                          .TakingDrops()
                          .Grow(1),
                      Text(form.lStat, "lStat")});
  Item buttons = Column(
      {Button(form.cmdAddFiles, "cmdAddFiles"), Button(form.cmdAddDirectory, "cmdAddDirectory"),
       Check(form.chkSubDirectories, "chkSubDirectories", "i"), Space(9),
       Button(form.cmdRemove, "cmdRemove"), Button(form.cmdClear, "cmdClear", "l"), Stretch()});
  Page page = MakePage(1, Text(form.Label11, "Label11").TakingDrops(),
                       {Text(form.lblText1, "lblText1").Wrapping().TakingDrops(),
                        Frame("", "Frame2", Row({std::move(list).Grow(1), std::move(buttons)}))
                            .TakingDrops()
                            .Grow(1)});
  page.takesDrops = true;
  page.drop = [&form](const DropData& data) { form.AddDroppedFiles(data); };
  return page;
}

// Six parts of the new name, two to a row joined by "+", then the replace
// pair; each box says in its tip what it does, and is called as its switch
// is (/placement1 ...) or as its caption says.
Item Placement(fTessaly& form, int index) {
  std::string tip = index == 6   ? "Text to find in every new name; (Advanced) uses a list"
                    : index == 7 ? "Text to put in place of what Replace: finds"
                                 : "Part " + std::to_string(index + 1) +
                                       " of the new name: pick from the list or type any text";
  std::string spoken = index == 6   ? "Replace"
                       : index == 7 ? "With"
                                    : "Placement " + std::to_string(index + 1);
  return Combo(form.cboBatch[index], Numbered("cboBatch", index))
      .Chars(12)
      .Lines(21)
      .Tip(std::move(tip))
      .Spoken(std::move(spoken));
}

// A "..." button, narrow but wide enough for its dots at any font size;
// `spoken` says what it opens.
Item Dots(CommandButton& button, std::string name, std::string spoken) {
  return Button(button, std::move(name)).Sized(18, 0).Spoken(std::move(spoken));
}

Item Placements(fTessaly& form) {
  std::vector<Item> cells;
  for (int row = 0; row < 3; ++row) {
    cells.push_back(Placement(form, 2 * row).At(row, 0));
    cells.push_back(Caption("+").Aligned(Align::kCentre).At(row, 1));
    cells.push_back(Placement(form, 2 * row + 1).At(row, 2));
  }
  cells.push_back(Caption("&Replace:", "cboBatch6").At(4, 0));
  cells.push_back(Caption("&With", "cboBatch7").At(4, 2));
  cells.push_back(Row({Placement(form, 6).Grow(1),
                       Dots(form.cmdReplaceAdv, "cmdReplaceAdv", "Advanced Replace list")})
                      .Spaced(1, -1)
                      .At(5, 0));
  cells.push_back(Row({Placement(form, 7).Grow(1),
                       Dots(form.cmdReplaceAdv2, "cmdReplaceAdv2", "Advanced Replace list")})
                      .Spaced(1, -1)
                      .At(5, 2));
  return Grid(std::move(cells)).Spaced(5, 3).StretchColumns({1, 0, 1}).RowHeights({0, 0, 0, 2});
}

// The option boxes in three equal columns, each with its mnemonic and what
// it does in one line.
struct OptionCell {
  CheckBox fTessaly::*box;
  const char* name;
  const char* keys;
  const char* tip;
};
constexpr OptionCell kOptions[4][3] = {
    {{&fTessaly::chkShortExtension, "chkShortExtension", "s",
      "Shortens extensions: jpeg to jpg, mpeg to mpg, tiff to tif"},
     {&fTessaly::chkCapitalize, "chkCapitalize", "z", "Starts every word with a capital letter"},
     {&fTessaly::chkAllowSpaces, "chkAllowSpaces", "a",
      "Keeps blanks; when clear, every blank becomes an underscore"}},
    {{&fTessaly::chkLongExtension, "chkLongExtension", "l",
      "Lengthens extensions: jpg to jpeg, mpg to mpeg, tif to tiff"},
     {&fTessaly::chkRemoveu, "chkRemoveu", "p", "Turns every underscore into a blank"},
     {&fTessaly::chkRemoveNumbers, "chkRemoveNumbers", "m",
      "Removes numbers in brackets, such as (1), [2] or {3}, from the old name"}},
    {{&fTessaly::chkRemoveDoubleSpace, "chkRemoveDoubleSpace", "d",
      "Turns a run of blanks into one blank"},
     {&fTessaly::chkLowercase, "chkLowercase", "o", "Puts the new name in small letters"},
     {&fTessaly::chkUpperCase, "chkUpperCase", "u", "Puts the new name in capital letters"}},
    {{&fTessaly::chkExtra, "chkExtra", "e", "Keeps only the period before the extension"},
     {&fTessaly::chkFormatting, "chkFormatting", "f",
      "Removes the texts ticked in the list that ... opens"},
     {&fTessaly::chkFixSpacing, "chkFixSpacing", "x",
      "Removes blanks before a period and at the ends, and shortens runs of blanks"}},
};

Item OptionBox(fTessaly& form, const OptionCell& cell) {
  return Check(form.*cell.box, cell.name, cell.keys).Tip(cell.tip);
}

Item Options(fTessaly& form) {
  std::vector<Item> cells;
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 3; ++column) {
      const OptionCell& cell = kOptions[row][column];
      Item box = OptionBox(form, cell);
      if (cell.box == &fTessaly::chkFormatting) {
        box = Row({std::move(box),
                   Dots(form.cmdUnwantedFormat, "cmdUnwantedFormat", "Unwanted Formatting list"),
                   Stretch()})
                  .Spaced(2, -1);
      }
      cells.push_back(std::move(box).At(row, column));
    }
  }
  cells.push_back(Caption("Example Output:").At(5, 0));
  cells.push_back(
      OptionBox(form, {&fTessaly::chkRealFiles, "chkRealFiles", "i",
                       "Shows the example with three files of your list in place of samples"})
          .At(5, 1));
  cells.push_back(
      OptionBox(form, {&fTessaly::chkIncludePaths, "chkIncludePaths", "t",
                       "Lets the settings change the folders too, and shows them below"})
          .At(5, 2));
  return Grid(std::move(cells)).Spaced(6, 2).StretchColumns({1, 1, 1}).RowHeights({0, 0, 0, 0, 5});
}

// The frame's mnemonic leads to the first placement.
Page SettingsPage(fTessaly& form) {
  Item naming = Column({Placements(form), Space(3), Caption("Additional Options:"), Options(form),
                        Example(form.txtExample, "txtExample", 3).Spoken("Example Output")})
                    .Spaced(-1, 3);
  return MakePage(2, Text(form.pStep[2], ""),
                  {Frame("File Nameing", "Frame3", std::move(naming)).Keys("g"), Stretch()});
}

// `pFolderPath` lies over the destination choice and hides it while paths
// are part of the conversion. The frame keeps its height: while the preview
// is hidden the room below stays empty.
Page ReviewPage(fTessaly& form) {
  const auto shown = [&form](std::string_view path) { return form.ShownPath(path); };
  Item choice = Grid({Option(form.optMoveSameFolder, "optMoveSameFolder", "s")
                          .Tip("Gives each file its new name in the folder it is in")
                          .At(0, 0),
                      Option(form.optMoveNewFolder, "optMoveNewFolder", "m")
                          .Tip("Moves the renamed files into a folder you choose")
                          .At(1, 0),
                      Button(form.cmdSelectFolder, "cmdSelectFolder", "o").At(1, 1),
                      PathText(form.lFolder, "lFolder", shown).At(2, 0, 1, 3)})
                    .StretchColumns({0, 0, 1});
  Item note =
      Panel("pFolderPath",
            Column({Text(form.lInfoPath, "lInfoPath").Wrapping().Aligned(Align::kTopLeft).Grow(1)})
                .Margined(0, 0, 0, 0),
            &form.pFolderPath);
  return MakePage(
      3, Text(form.pStep[3], ""),
      {Frame(form.Frame1, "Frame1", Overlay({std::move(choice), std::move(note)})),
       Caption(std::string(kPreviewHeading)).Named("lPreviewHeading").Styled(Look::kBold),
       RichText(form.tOutput, "tOutput").Spoken("Preview").Grow(1), Stretch(0)});
}

Page LogPage(fTessaly& form) {
  return MakePage(4, Text(form.pStep[4], ""),
                  {RichText(form.tLog, "tLog").Spoken("Change log").Grow(1)});
}

}  // namespace

WizardWindow DescribeWizard(fTessaly& form) {
  WizardWindow window;
  for (int i = 0; i < fTessaly::kStepCount; ++i) {
    window.steps.push_back(Text(form.lblStep[i], Numbered("lblStep", i)).Styled(Look::kStep));
  }
  window.pages.push_back(WelcomePage(form));
  window.pages.push_back(FilePage(form));
  window.pages.push_back(SettingsPage(form));
  window.pages.push_back(ReviewPage(form));
  window.pages.push_back(LogPage(form));
  // "Next >" and "Finish >" both go on with N. Undo, shown after the run
  // alone, takes Back's room: in Next's it would stand under the pointer
  // of a person who double-clicked "Finish >". Both keep their room.
  window.buttons =
      Row({Stretch(),
           Overlay({Button(form.cmdBack, "cmdBack", "b").AtLeast(50, 0).KeepingPlace(),
                    Button(form.cmdUndo, "cmdUndo", "u").AtLeast(50, 0)}),
           Button(form.cmdNext, "cmdNext", "n").AtLeast(50, 0).KeepingPlace(),
           Space(7), Button(form.cmdCancel, "cmdCancel", "cf").AtLeast(50, 0)})
          .Margined(7, 6, 7, 7);
  window.defaultButton = "cmdNext";
  window.cancelButton = "cmdCancel";
  window.size = {457, 343};
  return window;
}

}  // namespace tessaly::layout
