#ifndef TESSALY_BENCH_SAMPLE_NAMES_H_
#define TESSALY_BENCH_SAMPLE_NAMES_H_

#include <cstddef>
#include <string>
#include <vector>

namespace tessaly::bench {

// A repeatable mix of full paths such as people rename: camera files,
// downloads with copy marks, numbered tracks, documents with brackets,
// accented and non-Latin names, doubled blanks and several periods.
std::vector<std::string> SampleNames(std::size_t count);
// `count` of them, each made unique by its number added as one more
// extension: the list the views are measured with.
std::vector<std::string> NumberedSampleNames(std::size_t count);

}  // namespace tessaly::bench

#endif  // TESSALY_BENCH_SAMPLE_NAMES_H_
