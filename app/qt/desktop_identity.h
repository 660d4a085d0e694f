#ifndef TESSALY_APP_QT_DESKTOP_IDENTITY_H_
#define TESSALY_APP_QT_DESKTOP_IDENTITY_H_

namespace tessaly::qt {

// Ties the program's windows to its menu entry, so the task bar shows the
// entry's name and icon: the desktop file "tessaly.desktop", and the icon
// "tessaly" of the icon theme, or the emblem painted here where the theme
// has none (a build run from its folder, before it is installed).
void SetDesktopIdentity();

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_DESKTOP_IDENTITY_H_
