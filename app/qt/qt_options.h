#ifndef TESSALY_APP_QT_QT_OPTIONS_H_
#define TESSALY_APP_QT_QT_OPTIONS_H_

#include <string_view>

namespace tessaly::qt {

// How many words the option of Qt's own at `word` takes, itself and its
// value ("-style fusion" two, "-style=fusion" and "-reverse" one); 0 when
// `word` is none of the options QApplication documents.
int QtOptionWords(std::string_view word);

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_QT_OPTIONS_H_
