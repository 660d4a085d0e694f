// Step 1: the sorted file list, its buttons, and drops from file managers.

#include <QGroupBox>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

#include "bindings.h"
#include "file_drops.h"
#include "list_box_model.h"
#include "model_widgets.h"
#include "wizard_pages.h"

namespace tessaly::qt {

namespace {

// Keeps the list view's selection and the model's marks the same: a
// person's selection goes into the model row by row (before "Remove" reads
// it), and after each refresh the view takes the model's marks.
class SelectionSync : public QObject {
 public:
  SelectionSync(ListBox& list, QListView* view, ListBoxModel* model)
      : QObject(view), list_(list), view_(view) {
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection& selected, const QItemSelection& deselected) {
              Forward(deselected, false);
              Forward(selected, true);
            });
    model->refreshed = [this] { TakeFromModel(); };
  }

 private:
  void Forward(const QItemSelection& rows, bool selected) {
    if (taking_) return;
    for (const QItemSelectionRange& range : rows) {
      for (int row = range.top(); row <= range.bottom(); ++row) {
        if (row < static_cast<int>(list_.ListCount())) {
          list_.SetSelected(static_cast<std::size_t>(row), selected);
        }
      }
    }
  }

  void TakeFromModel() {
    QItemSelection marks;
    const int rows = static_cast<int>(list_.ListCount());
    for (int row = 0; row < rows;) {
      if (!list_.Selected(static_cast<std::size_t>(row))) {
        ++row;
        continue;
      }
      const int first = row;
      while (row < rows && list_.Selected(static_cast<std::size_t>(row))) ++row;
      marks.select(view_->model()->index(first, 0), view_->model()->index(row - 1, 0));
    }
    if (marks == view_->selectionModel()->selection()) return;
    taking_ = true;
    view_->selectionModel()->select(marks, QItemSelectionModel::ClearAndSelect);
    taking_ = false;
  }

  ListBox& list_;
  QListView* view_;
  bool taking_ = false;
};

}  // namespace

QWidget* BuildFilePage(fTessaly& form) {
  PageFrame frame = MakePage("pStep1");
  // Label11 is the page's heading: its caption in the heading's style.
  frame.heading->setObjectName(QStringLiteral("Label11"));
  FollowHeading(form.Label11, frame.heading);

  auto* text = new QLabel(frame.page);
  text->setObjectName(QStringLiteral("lblText1"));
  text->setWordWrap(true);
  BindLabel(form.lblText1, text);
  frame.body->addWidget(text);

  auto* files = new QGroupBox(frame.page);
  files->setObjectName(QStringLiteral("Frame2"));
  auto* columns = new QHBoxLayout(files);
  auto* left = new QVBoxLayout;
  auto* list = new QListView(files);
  list->setObjectName(QStringLiteral("lstFiles"));
  list->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list->setUniformItemSizes(true);  // keeps 32,767 rows cheap to lay out
  list->setEditTriggers(QAbstractItemView::NoEditTriggers);
  auto* rows = new ListBoxModel(form.lstFiles, false, list);
  rows->shown = [&form](std::string_view path) { return form.ShownPath(path); };
  list->setModel(rows);
  new SelectionSync(form.lstFiles, list, rows);
  left->addWidget(list, 1);
  auto* count = new QLabel(files);
  count->setObjectName(QStringLiteral("lStat"));
  BindLabel(form.lStat, count);
  left->addWidget(count);
  columns->addLayout(left, 1);

  auto* right = new QVBoxLayout;
  right->addWidget(NewButton(form.cmdAddFiles, "cmdAddFiles", files));
  right->addWidget(NewButton(form.cmdAddDirectory, "cmdAddDirectory", files));
  auto* subFolders = new ModelCheckBox(files);
  subFolders->setObjectName(QStringLiteral("chkSubDirectories"));
  BindCheckBox(form.chkSubDirectories, subFolders, "i");
  right->addWidget(subFolders);
  right->addSpacing(16);
  right->addWidget(NewButton(form.cmdRemove, "cmdRemove", files));
  right->addWidget(NewButton(form.cmdClear, "cmdClear", files, "l"));
  right->addStretch();
  columns->addLayout(right);
  frame.body->addWidget(files, 1);

  // The list, its frame, the heading, the instructions and the page take
  // dropped files; nothing else does.
  const auto drop = [&form](const QMimeData& mime) { form.AddDroppedFiles(ReadDrop(mime)); };
  for (QWidget* target : {list->viewport(), static_cast<QWidget*>(files),
                          static_cast<QWidget*>(frame.heading), static_cast<QWidget*>(text),
                          frame.page}) {
    new DropTarget(target, drop);
  }
  return frame.page;
}

}  // namespace tessaly::qt
