#ifndef TESSALY_CONVERSION_SAMPLE_PATHS_H_
#define TESSALY_CONVERSION_SAMPLE_PATHS_H_

#include <array>
#include <string_view>

namespace tessaly {

// The three invented paths the example output shows while no real files
// are drawn. Between them they hold brackets, several extensions, a run of
// blanks, a blank before a period, an upper-case extension and mixed case.
inline constexpr std::array<std::string_view, 3> kBuiltInSamples = {
    "c:\\graphics\\common\\myfile_(1).tmd.jpg.jpeg",
    "c:\\graphics\\common\\Copy of MYFILE -    SPACE - 04 - Oddy.JPG",
    "c:\\graphics\\common\\MyFile - My file data HeadEr .mP3",
};

}  // namespace tessaly

#endif  // TESSALY_CONVERSION_SAMPLE_PATHS_H_
