#include "realise.h"

#include <QComboBox>
#include <QEvent>
#include <QFontMetrics>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>
#include <QVBoxLayout>
#include <cmath>

#include "bindings.h"
#include "check_list.h"
#include "file_drops.h"
#include "file_list_view.h"
#include "model_widgets.h"
#include "rich_text_view.h"

namespace tessaly::qt {

namespace {

using layout::Align;
using layout::Arrange;
using layout::Item;
using layout::Kind;
using layout::Look;

// The model of `item`, of the type its kind binds.
template <typename T>
T& ModelOf(const Item& item) {
  return *std::get<T*>(item.model);
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

Qt::Alignment TextAlignment(Align align) {
  switch (align) {
    case Align::kCentre:
      return Qt::AlignCenter;
    case Align::kTopLeft:
      return Qt::AlignTop | Qt::AlignLeft;
    case Align::kRight:
      return Qt::AlignRight | Qt::AlignVCenter;
    default:
      return Qt::AlignLeft | Qt::AlignVCenter;
  }
}

// Where a control stands in its cell; texts place their text instead.
Qt::Alignment CellAlignment(const Item& item) {
  const bool text =
      item.kind == Kind::kText || item.kind == Kind::kPathText || item.kind == Kind::kCaption;
  if (text || item.align == Align::kFill) return {};
  return TextAlignment(item.align);
}

// Gives `widget` the name a screen reader reads out. An editable
// drop-down's is read from its line, since Qt names the box itself by its
// text on Linux.
void Speak(QWidget* widget, const QString& name) {
  widget->setAccessibleName(name);
  if (auto* box = qobject_cast<QComboBox*>(widget); box != nullptr && box->lineEdit() != nullptr) {
    box->lineEdit()->setAccessibleName(name);
  }
}

// A caption as it is read out: without its mnemonic mark and closing ":".
QString SpokenCaption(QString caption) {
  caption.replace(QRegularExpression("&(.)"), "\\1");
  if (caption.endsWith(':')) caption.chop(1);
  return caption.trimmed();
}

void Embolden(QWidget* widget, double scale = 1) {
  QFont font = widget->font();
  font.setBold(true);
  if (scale != 1) font.setPointSizeF(font.pointSizeF() * scale);
  widget->setFont(font);
}

}  // namespace

DialogUnits::DialogUnits(const QFont& font) {
  const QFontMetrics metrics(font);
  const int letters = metrics.horizontalAdvance(
      QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"));
  letterWidth_ = (letters / 26 + 1) / 2;
  height_ = metrics.height();
}

int DialogUnits::Across(int units) const {
  return static_cast<int>(std::lround(units * letterWidth_ / 4.0));
}

int DialogUnits::Down(int units) const {
  return static_cast<int>(std::lround(units * height_ / 8.0));
}

Realiser::Realiser(const QWidget* reference, std::function<void(const DropData&)> drop)
    : units_(reference->font()), drop_(std::move(drop)) {}

void Realiser::Fill(QWidget* host, const Item& box) { host->setLayout(MakeLayout(box, host)); }

QLayout* Realiser::MakeLayout(const Item& box, QWidget* host) {
  QLayout* layout = box.arrange == Arrange::kColumn ? new QVBoxLayout
                    : box.arrange == Arrange::kRow  ? static_cast<QLayout*>(new QHBoxLayout)
                                                    : new QGridLayout;
  Shape(box, layout);
  for (const Item& child : box.children) Add(layout, box, child, host);
  return layout;
}

void Realiser::Shape(const Item& box, QLayout* layout) const {
  if (box.hasMargins) {
    layout->setContentsMargins(units_.Across(box.margins.left), units_.Down(box.margins.top),
                               units_.Across(box.margins.right), units_.Down(box.margins.bottom));
  }
  if (auto* grid = qobject_cast<QGridLayout*>(layout)) {
    if (box.spacing.width >= 0) grid->setHorizontalSpacing(units_.Across(box.spacing.width));
    if (box.spacing.height >= 0) grid->setVerticalSpacing(units_.Down(box.spacing.height));
    for (std::size_t i = 0; i < box.columnStretch.size(); ++i) {
      grid->setColumnStretch(static_cast<int>(i), box.columnStretch[i]);
    }
    for (std::size_t i = 0; i < box.rowMinimum.size(); ++i) {
      if (box.rowMinimum[i] > 0)
        grid->setRowMinimumHeight(static_cast<int>(i), units_.Down(box.rowMinimum[i]));
    }
  } else if (box.arrange == Arrange::kRow && box.spacing.width >= 0) {
    layout->setSpacing(units_.Across(box.spacing.width));
  } else if (box.arrange == Arrange::kColumn && box.spacing.height >= 0) {
    layout->setSpacing(units_.Down(box.spacing.height));
  }
}

void Realiser::Add(QLayout* layout, const Item& box, const Item& child, QWidget* host) {
  auto* grid = qobject_cast<QGridLayout*>(layout);
  auto* line = qobject_cast<QBoxLayout*>(layout);
  if (child.kind == Kind::kSpace) {
    line->addSpacing(box.arrange == Arrange::kRow ? units_.Across(child.fixed.width)
                                                  : units_.Down(child.fixed.height));
    return;
  }
  if (child.kind == Kind::kStretch) {
    line->addStretch(child.stretch);
    return;
  }
  if (box.arrange == Arrange::kOverlay) {
    // Each layer a window of its own, so a later one covers an earlier.
    QWidget* layer = child.kind == Kind::kBox ? new QWidget(host) : MakeWidget(child, host);
    if (child.kind == Kind::kBox) {
      Fill(layer, child);
      if (!child.hasMargins) layer->layout()->setContentsMargins(0, 0, 0, 0);
    }
    grid->addWidget(layer, 0, 0);
    layer->raise();
    return;
  }
  QWidget* widget = child.kind == Kind::kBox ? nullptr : MakeWidget(child, host);
  QLayout* inner = widget == nullptr ? MakeLayout(child, host) : nullptr;
  if (grid != nullptr) {
    const layout::Cell& cell = child.cell;
    if (widget != nullptr) {
      grid->addWidget(widget, cell.row, cell.column, cell.rowSpan, cell.columnSpan,
                      CellAlignment(child));
    } else {
      grid->addLayout(inner, cell.row, cell.column, cell.rowSpan, cell.columnSpan);
    }
  } else if (widget != nullptr) {
    line->addWidget(widget, child.stretch, CellAlignment(child));
  } else {
    line->addLayout(inner, child.stretch);
  }
}

QWidget* Realiser::MakeWidget(const Item& item, QWidget* parent) {
  QWidget* widget = nullptr;
  switch (item.kind) {
    case Kind::kFrame: {
      auto* frame = new QGroupBox(parent);
      if (std::holds_alternative<Label*>(item.model)) {
        BindFrame(ModelOf<Label>(item), frame);
      } else {
        frame->setTitle(WithMnemonic(item.text, item.keys));
      }
      Fill(frame, item);
      // A frame that does not grow keeps its height: room left below it
      // stays empty.
      if (item.stretch == 0) frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
      widget = frame;
      break;
    }
    case Kind::kPanel:
      widget = new QWidget(parent);
      widget->setAutoFillBackground(true);
      if (item.look == Look::kSheet) {
        widget->setBackgroundRole(QPalette::Base);
        widget->setForegroundRole(QPalette::Text);
      }
      if (std::holds_alternative<Label*>(item.model))
        BindEnabledVisible(ModelOf<Label>(item), widget);
      Fill(widget, item);
      break;
    case Kind::kText:
    case Kind::kPathText:
    case Kind::kCaption:
      widget = MakeText(item, parent);
      break;
    default:
      widget = MakeControl(item, parent);
      break;
  }
  if (!item.name.empty()) widget->setObjectName(QString::fromStdString(item.name));
  if (!item.tooltip.empty()) widget->setToolTip(ToQt(item.tooltip));
  if (!item.spoken.empty()) Speak(widget, ToQt(item.spoken));
  if (item.minimum.width > 0) widget->setMinimumWidth(units_.Across(item.minimum.width));
  if (item.minimum.height > 0) widget->setMinimumHeight(units_.Down(item.minimum.height));
  if (item.fixed.width > 0) widget->setFixedWidth(units_.Across(item.fixed.width));
  if (item.fixed.height > 0) widget->setFixedHeight(units_.Down(item.fixed.height));
  if (item.keepsPlace) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
  }
  if (item.takesDrops) {
    auto* list = qobject_cast<QListView*>(widget);
    TakeDrops(list != nullptr ? list->viewport() : widget);
  }
  return widget;
}

QWidget* Realiser::MakeText(const Item& item, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(item.wrap);
  label->setAlignment(TextAlignment(item.align));
  if (item.kind == Kind::kPathText) {
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    BindPathLabel(ModelOf<Label>(item), label, item.shownPath);
  } else if (item.kind == Kind::kText) {
    BindLabel(ModelOf<Label>(item), label, item.look == Look::kStep);
  } else if (Control* control = layout::ControlOf(item.model)) {
    Follow(control->changed, label, [control, label, keys = item.keys] {
      label->setText(WithMnemonic(control->caption(), keys));
    });
  } else {
    label->setText(WithMnemonic(item.text, item.keys));
  }
  if (!item.buddy.empty()) buddies_.emplace_back(label, QString::fromStdString(item.buddy));
  if (item.look == Look::kBold) Embolden(label);
  if (item.look == Look::kTitle) Embolden(label, 1.2);
  if (item.look == Look::kBand) {
    label->setAutoFillBackground(true);
    label->setContentsMargins(units_.Across(5), units_.Down(2), units_.Across(5), units_.Down(2));
    label->setBackgroundRole(QPalette::Highlight);
    label->setForegroundRole(QPalette::HighlightedText);
    Embolden(label);
  }
  return label;
}

QWidget* Realiser::MakeControl(const Item& item, QWidget* parent) {
  switch (item.kind) {
    case Kind::kButton: {
      auto* button = new QPushButton(parent);
      BindButton(ModelOf<CommandButton>(item), button, item.keys);
      return button;
    }
    case Kind::kCheckBox: {
      auto* box = new ModelCheckBox(parent);
      BindCheckBox(ModelOf<CheckBox>(item), box, item.keys);
      return box;
    }
    case Kind::kOption: {
      auto* option = new ModelRadioButton(parent);
      BindOption(ModelOf<OptionButton>(item), option, item.keys);
      return option;
    }
    case Kind::kComboBox: {
      auto* box = new QComboBox(parent);
      if (item.rows > 0) box->setMaxVisibleItems(item.rows);
      if (item.columns > 0) box->setMinimumContentsLength(item.columns);
      BindComboBox(ModelOf<ComboBox>(item), box);
      return box;
    }
    case Kind::kTextBox: {
      auto* edit = new QLineEdit(parent);
      BindLineEdit(ModelOf<TextBox>(item), edit);
      new FocusRule(ModelOf<TextBox>(item), edit);
      return edit;
    }
    case Kind::kExample: {
      auto* example = new QPlainTextEdit(parent);
      example->setLineWrapMode(QPlainTextEdit::NoWrap);
      example->setFixedHeight(example->fontMetrics().lineSpacing() * item.rows +
                              2 * example->frameWidth() + 12);
      BindReadOnlyText(ModelOf<TextBox>(item), example);
      return example;
    }
    case Kind::kFileList:
      return NewFileListView(ModelOf<ListBox>(item), item.shownPath, parent);
    case Kind::kCheckList: {
      auto* view = new QListView(parent);
      BindCheckList(ModelOf<ListBox>(item), view);
      return view;
    }
    case Kind::kRichText:
      return new RichTextView(ModelOf<RichTextBox>(item), parent);
    case Kind::kLine: {
      auto* line = new QFrame(parent);
      line->setFrameShape(QFrame::HLine);
      line->setFrameShadow(QFrame::Sunken);
      return line;
    }
    default:
      // A progress trough is drawn by the progress window itself.
      return new QWidget(parent);
  }
}

void Realiser::TakeDrops(QWidget* target) const {
  if (!drop_) return;
  new DropTarget(target, [drop = drop_](const QMimeData& mime) { drop(ReadDrop(mime)); });
}

void Realiser::Finish() {
  for (const auto& [label, buddy] : buddies_) {
    QWidget* window = label->window();
    QWidget* target = window->findChild<QWidget*>(buddy);
    if (target == nullptr) continue;
    label->setBuddy(target);
    // The caption names what it leads to, for a screen reader too.
    if (target->accessibleName().isEmpty()) Speak(target, SpokenCaption(label->text()));
  }
  buddies_.clear();
}

}  // namespace tessaly::qt
