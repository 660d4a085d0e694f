#ifndef TESSALY_APP_QT_FILE_LIST_VIEW_H_
#define TESSALY_APP_QT_FILE_LIST_VIEW_H_

#include <functional>
#include <string>
#include <string_view>

#include "controls/list_box.h"

class QListView;
class QWidget;

namespace tessaly::qt {

// A view of the file list with extended selection, rows shown by `shown`.
// Its selection and the list's marks stay the same: a person's selection
// goes into the list row by row (before "Remove" reads it), and after each
// refresh the view takes the list's marks.
QListView* NewFileListView(ListBox& list, std::function<std::string(std::string_view)> shown,
                           QWidget* parent);

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_FILE_LIST_VIEW_H_
