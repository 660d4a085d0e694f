#include "version_text.h"

#include "platform/program_info.h"

namespace tessaly::launch {

std::string VersionText(std::string_view program) {
  return std::string(program) + " (" + std::string(kProgramTitle) + ") " +
         std::to_string(kProgramVersion.major) + "." + std::to_string(kProgramVersion.minor) +
         "." + std::to_string(kProgramVersion.revision) + "\n";
}

}  // namespace tessaly::launch
