#ifndef TESSALY_APP_QT_READABLE_COLOUR_H_
#define TESSALY_APP_QT_READABLE_COLOUR_H_

#include <QColor>
#include <QPalette>

#include "controls/rich_text_box.h"

namespace tessaly::qt {

// The colour to draw a text in that the model colours `colour`, on the
// palette's base. On a dark base black and greys become the palette's
// text colour. Any other colour is drawn as it is where it reads well on
// the base, else lightened or darkened just enough (see
// tessaly::ReadableOn): blue stays blue and red stays red, and both can be
// read. The model keeps the true colours; only the view maps them.
QColor ReadableOn(const QPalette& palette, Rgb colour);

// A fill that text in the palette's window text colour stands on: `fill`
// itself under dark text, halfway to black under light text.
QColor FillUnderText(const QPalette& palette, QColor fill);

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_READABLE_COLOUR_H_
