#include "qt_options.h"

#include <algorithm>
#include <array>

namespace tessaly::qt {

namespace {

// As QGuiApplication and QApplication list them.
constexpr std::array<std::string_view, 12> kWithValue = {
    "platform", "platformpluginpath", "platformtheme", "plugin", "qwindowgeometry", "qwindowicon",
    "qwindowtitle", "session", "display", "geometry", "style", "stylesheet"};
constexpr std::array<std::string_view, 3> kAlone = {"reverse", "widgetcount", "qmljsdebugger"};

bool Among(const auto& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

int QtOptionWords(std::string_view word) {
  // Qt takes "-name" and "--name" alike.
  if (!word.starts_with('-')) return 0;
  word.remove_prefix(word.starts_with("--") ? 2 : 1);
  const std::size_t equals = word.find('=');
  const std::string_view name = word.substr(0, equals);
  if (equals != std::string_view::npos) return Among(kWithValue, name) || Among(kAlone, name) ? 1 : 0;
  if (Among(kWithValue, name)) return 2;
  return Among(kAlone, name) ? 1 : 0;
}

}  // namespace tessaly::qt
