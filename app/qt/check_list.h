#ifndef TESSALY_APP_QT_CHECK_LIST_H_
#define TESSALY_APP_QT_CHECK_LIST_H_

#include "controls/list_box.h"

class QListView;

namespace tessaly::qt {

// Binds a list with a check box per row to `view`: rows, marks and the
// current row come from the list; a click on a row or moving to it with
// the keys makes it current in the list, a click on a box is the list's
// check-box click.
void BindCheckList(ListBox& list, QListView* view);

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_CHECK_LIST_H_
