#ifndef TESSALY_APP_LAUNCH_VERSION_TEXT_H_
#define TESSALY_APP_LAUNCH_VERSION_TEXT_H_

#include <string>
#include <string_view>

namespace tessaly::launch {

// What --version prints for `program`: its name, the product and version,
// as "tessaly-cli (Tessaly) 1.0.14".
std::string VersionText(std::string_view program);

}  // namespace tessaly::launch

#endif  // TESSALY_APP_LAUNCH_VERSION_TEXT_H_
