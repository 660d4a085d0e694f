#ifndef TESSALY_PLATFORM_POSIX_DETACHED_START_H_
#define TESSALY_PLATFORM_POSIX_DETACHED_START_H_

#include <optional>
#include <string>
#include <vector>

namespace tessaly {

// Starts the program file `program` (a native path, used as it is) with
// `arguments` behind its name, each handed over as one argument, in
// `directory` when that is not empty. The program runs in a session of its
// own and is not waited for; it is never left behind as a zombie of the
// caller. Returns 0 once it runs, or the errno of what prevented it
// (ENOTDIR when the directory could not be entered).
int StartDetached(const std::string& program, const std::vector<std::string>& arguments,
                  const std::string& directory);

// The first program file called `name` in the folders of PATH, or nothing.
std::optional<std::string> FindInSearchPath(const std::string& name);

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_DETACHED_START_H_
