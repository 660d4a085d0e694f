// Step 2: the placements, the replace pair, the options and the example.

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "bindings.h"
#include "model_widgets.h"
#include "wizard_pages.h"

namespace tessaly::qt {

namespace {

// What each placement does, one line a box: six parts of the new name,
// then the replace pair.
QString PlacementTip(int index) {
  if (index == 6) return QStringLiteral("Text to find in every new name; (Advanced) uses a list");
  if (index == 7) return QStringLiteral("Text to put in place of what Replace: finds");
  return QStringLiteral("Part %1 of the new name: pick from the list or type any text")
      .arg(index + 1);
}

QComboBox* Placement(ComboBox& model, int index, QWidget* parent) {
  auto* box = new QComboBox(parent);
  box->setObjectName(QStringLiteral("cboBatch%1").arg(index));
  box->setMaxVisibleItems(21);
  box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  box->setMinimumContentsLength(12);
  box->setToolTip(PlacementTip(index));
  BindComboBox(model, box);
  return box;
}

QPushButton* Dots(CommandButton& model, const char* name, QWidget* parent) {
  QPushButton* button = NewButton(model, name, parent);
  // Narrow, but wide enough for its three dots at any font size.
  button->setFixedWidth(
      std::max(30, button->fontMetrics().horizontalAdvance(button->text()) + 14));
  return button;
}

QLabel* Caption(const char* text, QWidget* parent) {
  auto* label = new QLabel(QString::fromLatin1(text), parent);
  label->setTextFormat(Qt::PlainText);
  return label;
}

// A caption whose mnemonic moves the focus to `buddy`.
QLabel* CaptionFor(const char* text, QWidget* buddy, QWidget* parent) {
  QLabel* label = Caption(text, parent);
  label->setBuddy(buddy);
  return label;
}

// A box with its "..." button at its right end.
QWidget* WithDots(QWidget* box, QPushButton* dots, QWidget* parent) {
  auto* row = new QWidget(parent);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  layout->addWidget(box, 1);
  layout->addWidget(dots);
  return row;
}

// The option boxes in their three columns, each with its mnemonic and
// what it does in one line.
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

ModelCheckBox* Option(fTessaly& form, const OptionCell& cell, QWidget* parent) {
  auto* box = new ModelCheckBox(parent);
  box->setObjectName(QString::fromLatin1(cell.name));
  box->setToolTip(QString::fromLatin1(cell.tip));
  BindCheckBox(form.*cell.box, box, cell.keys);
  return box;
}

}  // namespace

QWidget* BuildSettingsPage(fTessaly& form) {
  PageFrame frame = MakePage("pStep2");
  FollowHeading(form.pStep[2], frame.heading);

  // Its mnemonic leads to the first placement.
  auto* naming = new QGroupBox(WithMnemonic(QStringLiteral("File Nameing"), "g"), frame.page);
  naming->setObjectName(QStringLiteral("Frame3"));
  auto* rows = new QVBoxLayout(naming);
  rows->setSpacing(6);

  // The six placements, two to a row joined by "+", then the replace pair.
  auto* placements = new QGridLayout;
  placements->setHorizontalSpacing(8);
  placements->setVerticalSpacing(5);
  placements->setColumnStretch(0, 1);
  placements->setColumnStretch(2, 1);
  for (int row = 0; row < 3; ++row) {
    placements->addWidget(Placement(form.cboBatch[2 * row], 2 * row, naming), row, 0);
    auto* plus = Caption("+", naming);
    plus->setAlignment(Qt::AlignCenter);
    placements->addWidget(plus, row, 1);
    placements->addWidget(Placement(form.cboBatch[2 * row + 1], 2 * row + 1, naming), row, 2);
  }
  placements->setRowMinimumHeight(3, 4);
  // Made one after the other, so the tab order reads left to right.
  QComboBox* replace = Placement(form.cboBatch[6], 6, naming);
  QPushButton* replaceDots = Dots(form.cmdReplaceAdv, "cmdReplaceAdv", naming);
  QComboBox* with = Placement(form.cboBatch[7], 7, naming);
  QPushButton* withDots = Dots(form.cmdReplaceAdv2, "cmdReplaceAdv2", naming);
  placements->addWidget(CaptionFor("&Replace:", replace, naming), 4, 0);
  placements->addWidget(CaptionFor("&With", with, naming), 4, 2);
  placements->addWidget(WithDots(replace, replaceDots, naming), 5, 0);
  placements->addWidget(WithDots(with, withDots, naming), 5, 2);
  rows->addLayout(placements);
  rows->addSpacing(6);

  // The options in three equal columns.
  rows->addWidget(Caption("Additional Options:", naming));
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(10);
  grid->setVerticalSpacing(4);
  for (int column = 0; column < 3; ++column) grid->setColumnStretch(column, 1);
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 3; ++column) {
      const OptionCell& cell = kOptions[row][column];
      QWidget* widget = Option(form, cell, naming);
      if (cell.box == &fTessaly::chkFormatting) {
        auto* pair = new QWidget(naming);
        auto* layout = new QHBoxLayout(pair);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(4);
        layout->addWidget(widget);
        layout->addWidget(Dots(form.cmdUnwantedFormat, "cmdUnwantedFormat", naming));
        layout->addStretch();
        widget = pair;
      }
      grid->addWidget(widget, row, column);
    }
  }
  grid->setRowMinimumHeight(4, 8);
  grid->addWidget(Caption("Example Output:", naming), 5, 0);
  grid->addWidget(Option(form,
                         {&fTessaly::chkRealFiles, "chkRealFiles", "i",
                          "Shows the example with three files of your list in place of samples"},
                         naming),
                  5, 1);
  grid->addWidget(Option(form,
                         {&fTessaly::chkIncludePaths, "chkIncludePaths", "t",
                          "Lets the settings change the folders too, and shows them below"},
                         naming),
                  5, 2);
  rows->addLayout(grid);

  auto* example = new QPlainTextEdit(naming);
  example->setObjectName(QStringLiteral("txtExample"));
  example->setLineWrapMode(QPlainTextEdit::NoWrap);
  example->setFixedHeight(example->fontMetrics().lineSpacing() * 3 +
                          2 * example->frameWidth() + 12);
  BindReadOnlyText(form.txtExample, example);
  rows->addWidget(example);

  frame.body->addWidget(naming);
  frame.body->addStretch();
  return frame.page;
}

}  // namespace tessaly::qt
