#ifndef TESSALY_WIZARD_LAYOUT_LAYOUT_H_
#define TESSALY_WIZARD_LAYOUT_LAYOUT_H_

// The wizard's windows described once, as data, for every toolkit to
// realise with its own widgets: which controls a page or dialog holds, in
// their order (which is the tab order), the names their widgets carry (the
// model's control names, so tests find them), fixed captions, mnemonics,
// tips, and how they sit: boxes of columns, rows and grids with stretch and
// spacing. State and events stay in the models the items point at; a view
// binds each item to its model as its kind says.
//
// Every control a person can reach has a name to be read out: its caption,
// or `spoken` (see Item).
//
// Lengths are dialog units: across, a quarter of the dialog font's average
// character width; down, an eighth of its height. A layout so grows with
// the font and the screen's scale (a Win32 view hands them to MapDialogRect
// as they are). `columns` and `rows` count characters and lines.
//
// Example: step 1's buttons, top to bottom, with a gap before Remove:
//   Column({Button(form.cmdAddFiles, "cmdAddFiles"),
//           Check(form.chkSubDirectories, "chkSubDirectories", "i"),
//           Space(8),
//           Button(form.cmdRemove, "cmdRemove"),
//           Stretch()})

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "controls/buttons.h"
#include "controls/combo_box.h"
#include "controls/list_box.h"
#include "controls/rich_text_box.h"
#include "controls/text_box.h"

namespace tessaly::layout {

enum class Kind {
  // Containers: they arrange their children as `arrange` says.
  kBox,    // no window of its own
  kFrame,  // a group box titled by its Label's caption, or `text`
  kPanel,  // a plain opaque window; its Label, if any, shows or hides it
  // Texts.
  kText,      // a Label's caption
  kPathText,  // a Label whose caption is a path, shown by `shownPath`
  kCaption,   // `text`, or the caption of the control in `model`; its
              // mnemonic moves the focus to the control named `buddy`
  // Controls, each bound two ways to its model.
  kButton,
  kCheckBox,   // three states, decided by the model
  kOption,     // the form keeps the group exclusive
  kComboBox,   // a drop-down with free text
  kTextBox,    // one line
  kExample,    // a TextBox shown read-only on `rows` lines, no wrapping
  kFileList,   // a ListBox with extended selection, rows shown by `shownPath`
  kCheckList,  // a ListBox with a check box on each row, one row current
  kRichText,   // a read-only RichTextBox
  kProgress,   // a trough (this item's Label, which carries the total), with
               // a bar (children[0], its Label carries the current value) and
               // a text over both (children[1])
  // Layout alone.
  kLine,     // a horizontal rule
  kSpace,    // a fixed gap along the parent box: `fixed` across or down
  kStretch,  // empty room that grows by `stretch`
};

// How a container places its children.
enum class Arrange {
  kColumn,   // top to bottom
  kRow,      // left to right
  kGrid,     // in the cells each child's `cell` names
  kOverlay,  // all in one place, a later one over an earlier one
};

// Where a text stands in the room its item gets, or a control in its cell;
// kFill: a text at the left, a control filling its cell.
enum class Align { kFill, kLeft, kRight, kCentre, kTopLeft };

enum class Look {
  kPlain,
  kBold,
  kTitle,  // bold and larger: a dialog's heading
  kBand,   // bold on the selection colour, the width of its parent
  kSheet,  // a panel in the colours of a text field
  kStep,   // bold when its Label says so (the step strip)
};

// Dialog units; 0 leaves that side to the toolkit.
struct Size {
  int width = 0;
  int height = 0;
};

struct Margins {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

// A child's place in a grid, counted from 0.
struct Cell {
  int row = 0;
  int column = 0;
  int rowSpan = 1;
  int columnSpan = 1;
};

// The model an item shows and drives; none for layout and fixed texts.
using Model = std::variant<std::monostate, Label*, CommandButton*, CheckBox*, OptionButton*,
                           ComboBox*, TextBox*, ListBox*, RichTextBox*>;

// The control behind `model`, or null.
Control* ControlOf(const Model& model);

// One control, text or container. Built by the functions below and shaped
// by the modifiers, which read as words: Button(...).Grow(1).At(0, 2).
struct Item {
  Kind kind = Kind::kBox;
  std::string name;  // the widget's name; empty for layout alone
  Model model;
  std::string text;     // a fixed caption, "&" marking its mnemonic
  std::string keys;     // mnemonic letters in order of preference, where
                        // the caption has no "&" (see WithMnemonic)
  std::string tooltip;  // what it does, in one line
  // What the control is called for a person who hears the window (its
  // accessible name), where no caption of its own says it: a box, a list,
  // a button whose caption is a sign.
  std::string spoken;
  std::string buddy;    // kCaption: where its mnemonic leads
  std::function<std::string(std::string_view)> shownPath;  // kPathText, kFileList
  Look look = Look::kPlain;
  Align align = Align::kFill;
  bool wrap = false;        // texts: wrap at the width they get
  bool takesDrops = false;  // files dropped on it go to the page's `drop`
  bool keepsPlace = false;  // hidden, it still takes its room, so what is
                            // beside it does not move under the pointer
  int stretch = 0;          // share of the room left over in the parent box;
                            // a frame with none keeps its height
  int columns = 0;          // room for this many average characters
  int rows = 0;             // drop-down rows, or lines of text, on show
  Size minimum;
  Size fixed;
  Cell cell;
  // Containers.
  Arrange arrange = Arrange::kColumn;
  Size spacing{-1, -1};     // between children, across and down; -1: the toolkit's
  bool hasMargins = false;  // else none for a kBox inside another, and the
                            // toolkit's for a window or a window's body
  Margins margins;
  std::vector<int> columnStretch;  // grids: per column
  std::vector<int> rowMinimum;     // grids: per row, dialog units down
  std::vector<Item> children;

  Item Named(std::string value) && { return std::move(Set(name, std::move(value))); }
  Item Grow(int share) && { return std::move(Set(stretch, share)); }
  Item At(int row, int column, int rowSpan = 1, int columnSpan = 1) && {
    return std::move(Set(cell, Cell{row, column, rowSpan, columnSpan}));
  }
  Item Tip(std::string line) && { return std::move(Set(tooltip, std::move(line))); }
  Item Spoken(std::string words) && { return std::move(Set(spoken, std::move(words))); }
  Item Keys(std::string letters) && { return std::move(Set(keys, std::move(letters))); }
  Item Styled(Look value) && { return std::move(Set(look, value)); }
  Item Aligned(Align value) && { return std::move(Set(align, value)); }
  Item Wrapping() && { return std::move(Set(wrap, true)); }
  Item TakingDrops() && { return std::move(Set(takesDrops, true)); }
  Item KeepingPlace() && { return std::move(Set(keepsPlace, true)); }
  Item Chars(int count) && { return std::move(Set(columns, count)); }
  Item Lines(int count) && { return std::move(Set(rows, count)); }
  Item AtLeast(int width, int height) && { return std::move(Set(minimum, Size{width, height})); }
  Item Sized(int width, int height) && { return std::move(Set(fixed, Size{width, height})); }
  Item Spaced(int across, int down) && { return std::move(Set(spacing, Size{across, down})); }
  Item Margined(int left, int top, int right, int bottom) && {
    hasMargins = true;
    return std::move(Set(margins, Margins{left, top, right, bottom}));
  }
  Item StretchColumns(std::vector<int> shares) && {
    return std::move(Set(columnStretch, std::move(shares)));
  }
  Item RowHeights(std::vector<int> heights) && {
    return std::move(Set(rowMinimum, std::move(heights)));
  }

 private:
  template <typename T, typename V>
  Item& Set(T& field, V&& value) {
    field = std::forward<V>(value);
    return *this;
  }
};

// Controls.
Item Text(Label& label, std::string name);
Item PathText(Label& label, std::string name, std::function<std::string(std::string_view)> shown);
Item Caption(std::string text, std::string buddy = "");
Item CaptionOf(Model control, std::string buddy, std::string keys);
Item Button(CommandButton& button, std::string name, std::string keys = "");
Item Check(CheckBox& box, std::string name, std::string keys = "");
Item Option(OptionButton& option, std::string name, std::string keys = "");
Item Combo(ComboBox& box, std::string name);
Item Edit(TextBox& box, std::string name);
Item Example(TextBox& box, std::string name, int lines);
Item FileList(ListBox& list, std::string name, std::function<std::string(std::string_view)> shown);
Item CheckList(ListBox& list, std::string name);
Item RichText(RichTextBox& box, std::string name);
Item Progress(Label& total, std::string name, Item bar, Item text);
// Layout.
Item Line();
Item Space(int length);
Item Stretch(int share = 1);
Item Column(std::vector<Item> children);
Item Row(std::vector<Item> children);
Item Grid(std::vector<Item> children);
Item Overlay(std::vector<Item> children);
Item Frame(Label& title, std::string name, Item inside);
Item Frame(std::string title, std::string name, Item inside);
Item Panel(std::string name, Item inside, Label* shownBy = nullptr);

// `caption` with the mnemonic mark "&" before the first of `keys` it holds
// (letters, ignoring case), at the start of a word where it can be; a
// caption that has a mark already ("&&" is a plain "&") keeps its own.
std::string WithMnemonic(std::string_view caption, std::string_view keys);

// Calls `visit` on `item` and every item inside it, parents first.
void ForEach(const Item& item, const std::function<void(const Item&)>& visit);

}  // namespace tessaly::layout

#endif  // TESSALY_WIZARD_LAYOUT_LAYOUT_H_
