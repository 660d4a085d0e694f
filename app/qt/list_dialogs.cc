#include "list_dialogs.h"

#include <QComboBox>
#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "bindings.h"
#include "check_list.h"

namespace tessaly::qt {

namespace {

QPushButton* Button(CommandButton& model, const char* name, QWidget* parent, const char* keys) {
  QPushButton* button = NewButton(model, name, parent, keys);
  button->setAutoDefault(false);
  return button;
}

// A plain label that shows a control's caption (the text beside a box);
// its mnemonic from `keys` moves the focus to `buddy`.
QLabel* CaptionOf(Control& control, QWidget* buddy, const char* keys, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setBuddy(buddy);
  Follow(control.changed, label, [&control, label, keys] {
    label->setText(WithMnemonic(ToQt(control.caption()), keys));
  });
  return label;
}

QListView* CheckList(ListBox& list, const char* name, QWidget* parent) {
  auto* view = new QListView(parent);
  view->setObjectName(QString::fromLatin1(name));
  BindCheckList(list, view);
  return view;
}

// Runs the text box's focus rule when the person enters it. Deferred, so a
// mouse press that brought the focus has placed its caret first and the
// rule's selection stays.
class FocusRule : public QObject {
 public:
  FocusRule(TextBox& box, QLineEdit* edit) : QObject(edit), box_(box) {
    edit->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::FocusIn) {
      QTimer::singleShot(0, this, [this] { box_.Focus(); });
    }
    return false;
  }

 private:
  TextBox& box_;
};

QLabel* Band(Label& model, const char* name, QWidget* parent) {
  auto* band = new QLabel(parent);
  band->setObjectName(QString::fromLatin1(name));
  band->setAutoFillBackground(true);
  band->setContentsMargins(8, 4, 8, 4);
  band->setBackgroundRole(QPalette::Highlight);
  band->setForegroundRole(QPalette::HighlightedText);
  BindLabel(model, band);
  QFont bold = band->font();
  bold.setBold(true);
  band->setFont(bold);
  return band;
}

}  // namespace

ListDialog::ListDialog(Form& form, QWidget* owner) : QDialog(owner) {
  setObjectName(QString::fromStdString(form.name()));
  setModal(true);
  Follow(form.changed, this, [this, &form] { setWindowTitle(ToQt(form.caption())); });
  HoldUntilGone(this, form.unloaded.Connect([this] { accept(); }));
}

ReplaceAdvancedDialog::ReplaceAdvancedDialog(fReplaceAdvanced& form, QWidget* owner)
    : ListDialog(form, owner) {
  auto* layout = new QGridLayout(this);
  layout->setSizeConstraint(QLayout::SetMinimumSize);
  layout->setHorizontalSpacing(8);
  layout->setVerticalSpacing(6);
  for (int i = 0; i < 2; ++i) {
    auto* box = new QComboBox(this);
    box->setObjectName(QStringLiteral("cboBatch%1").arg(i));
    box->setMinimumContentsLength(18);
    box->setMaxVisibleItems(20);
    BindComboBox(form.cboBatch[i], box);
    layout->addWidget(CaptionOf(form.cboBatch[i], box, i == 0 ? "r" : "w", this), 0, i);
    layout->addWidget(box, 1, i);
  }
  layout->addWidget(Button(form.cmdAdd, "cmdAdd", this, "a"), 1, 2);

  auto* list = CheckList(form.lstReplace, "lstReplace", this);
  layout->addWidget(CaptionOf(form.lstReplace, list, "l", this), 2, 0, 1, 2);
  list->setMinimumHeight(200);
  layout->addWidget(list, 3, 0, 1, 2);
  auto* side = new QVBoxLayout;
  side->addWidget(Button(form.cmdClear, "cmdClear", this, "c"));
  side->addWidget(Button(form.cmdRemoveSelected, "cmdRemoveSelected", this, "s"));
  side->addStretch();
  layout->addLayout(side, 3, 2);

  auto* accept = Button(form.cmdAccept, "cmdAccept", this, "e");
  accept->setDefault(true);
  layout->addWidget(accept, 4, 2);
  layout->setColumnStretch(0, 1);
  layout->setColumnStretch(1, 1);
}

UnwantedFormattingDialog::UnwantedFormattingDialog(fUnwantedFormatting& form, QWidget* owner)
    : ListDialog(form, owner) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 10);
  // No smaller than the layout needs, the wrapped description included.
  layout->setSizeConstraint(QLayout::SetMinimumSize);
  layout->setSpacing(0);

  auto* top = new QWidget(this);
  top->setAutoFillBackground(true);
  top->setBackgroundRole(QPalette::Base);
  top->setForegroundRole(QPalette::Text);
  auto* topLayout = new QVBoxLayout(top);
  topLayout->setContentsMargins(12, 10, 12, 10);
  auto* heading = new QLabel(top);
  heading->setObjectName(QStringLiteral("lblHeading"));
  heading->setForegroundRole(QPalette::Text);
  BindLabel(form.lblHeading, heading);
  QFont big = heading->font();
  big.setBold(true);
  big.setPointSizeF(big.pointSizeF() * 1.2);
  heading->setFont(big);
  auto* description = new QLabel(top);
  description->setObjectName(QStringLiteral("lblDescription"));
  description->setWordWrap(true);
  description->setForegroundRole(QPalette::Text);
  BindLabel(form.lblDescription, description);
  topLayout->addWidget(heading);
  topLayout->addWidget(description);
  layout->addWidget(top);
  layout->addWidget(Band(form.lblCommonSettings, "lblCommonSettings", this));

  auto* body = new QHBoxLayout;
  body->setContentsMargins(12, 10, 12, 0);
  body->setSpacing(14);

  auto* left = new QVBoxLayout;
  auto* add = new QLineEdit(this);
  add->setObjectName(QStringLiteral("txtAdd"));
  BindLineEdit(form.txtAdd, add);
  left->addWidget(CaptionOf(form.txtAdd, add, "c", this));
  auto* addRow = new QHBoxLayout;
  addRow->addWidget(add, 1);
  addRow->addWidget(Button(form.cmdAdd, "cmdAdd", this, "a"));
  left->addLayout(addRow);
  auto* line = new QFrame(this);
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  left->addSpacing(8);
  left->addWidget(line);
  left->addSpacing(8);
  auto* editRow = new QHBoxLayout;
  auto* edit = new QLineEdit(this);
  edit->setObjectName(QStringLiteral("txtEdit"));
  BindLineEdit(form.txtEdit, edit);
  new FocusRule(form.txtEdit, edit);
  editRow->addWidget(edit, 1);
  editRow->addWidget(Button(form.cmdUpdate, "cmdUpdate", this, "u"));
  left->addLayout(editRow);
  left->addStretch();
  body->addLayout(left, 1);

  auto* right = new QVBoxLayout;
  auto* list = CheckList(form.lstRemove, "lstRemove", this);
  right->addWidget(CaptionOf(form.lstRemove, list, "l", this));
  list->setMinimumHeight(180);
  right->addWidget(list, 1);
  auto* remove = Button(form.cmdRemove, "cmdRemove", this, "r");
  right->addWidget(remove, 0, Qt::AlignRight);
  body->addLayout(right, 1);
  layout->addLayout(body, 1);

  auto* bottom = new QHBoxLayout;
  bottom->setContentsMargins(12, 10, 12, 0);
  bottom->addStretch();
  bottom->addWidget(Button(form.cmdExit, "cmdExit", this, "f"));
  layout->addLayout(bottom);
  resize(sizeHint().expandedTo(QSize(620, 420)));
}

}  // namespace tessaly::qt
