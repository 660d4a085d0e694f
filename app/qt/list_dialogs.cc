#include "list_dialogs.h"

#include <QLayout>
#include <QPushButton>

#include "bindings.h"
#include "realise.h"

namespace tessaly::qt {

ListDialog::ListDialog(Form& form, const layout::Dialog& description, QWidget* owner)
    : QDialog(owner) {
  setObjectName(ToQt(form.name()));
  setModal(true);
  Realiser realiser(this);
  realiser.Fill(this, description.body);
  realiser.Finish();
  // No smaller than the layout needs, wrapped texts included.
  layout()->setSizeConstraint(QLayout::SetMinimumSize);
  // Return clicks the default button, wherever the focus is.
  for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
  if (!description.defaultButton.empty()) {
    findChild<QPushButton*>(QString::fromStdString(description.defaultButton))->setDefault(true);
  }
  const DialogUnits& units = realiser.units();
  resize(sizeHint().expandedTo(
      QSize(units.Across(description.size.width), units.Down(description.size.height))));

  Follow(form.changed, this, [this, &form] { setWindowTitle(ToQt(form.caption())); });
  HoldUntilGone(this, form.unloaded.Connect([this] { accept(); }));
}

}  // namespace tessaly::qt
