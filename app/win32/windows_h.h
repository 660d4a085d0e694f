#ifndef TESSALY_APP_WIN32_WINDOWS_H_H_
#define TESSALY_APP_WIN32_WINDOWS_H_H_

// <windows.h> for this front-end: without the macro that would rename the
// Ui's MessageBox to MessageBoxW in some files and not in others.
#include <windows.h>
#undef MessageBox

#endif  // TESSALY_APP_WIN32_WINDOWS_H_H_
