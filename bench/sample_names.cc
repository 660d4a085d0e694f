#include "sample_names.h"

#include <random>

namespace tessaly::bench {

namespace {

const char* const kFolders[] = {
    "c:\\Users\\ann\\Pictures\\2019 Summer\\", "d:\\Music\\Various Artists\\",
    "\\home\\ann\\Downloads\\", "e:\\Scans\\Tax [2024]\\", "c:\\Work\\Reports - Q3\\",
};

std::string NameFor(std::mt19937& random, std::size_t i) {
  const std::string n = std::to_string(i % 997);
  switch (random() % 10) {
    case 0: return "IMG_" + std::to_string(1000 + i % 9000) + ".JPG";
    case 1: return "Copy of report (" + std::to_string(i % 12) + ").docx";
    case 2: return n + " - Some Artist - A Song Title (Radio Edit).mp3";
    case 3: return "My Vacation [" + n + "] {1}.jpeg";
    case 4: return "Shortcut To budget_final_v" + n + ".xlsx.lnk";
    case 5: return "Ünïcode Ça va - été " + n + ".PNG";
    case 6: return "scan  of   the    contract_" + n + " .tiff";
    case 7: return "Copy (07) Of notes-" + n + ".txt";
    case 8: return "фото_" + n + ".Jpg";
    default: return "archive.tar.gz.part" + n;
  }
}

}  // namespace

std::vector<std::string> SampleNames(std::size_t count) {
  std::mt19937 random(2026);
  std::vector<std::string> names;
  names.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    names.push_back(kFolders[random() % std::size(kFolders)] + NameFor(random, i));
  }
  return names;
}

std::vector<std::string> NumberedSampleNames(std::size_t count) {
  std::vector<std::string> names = SampleNames(count);
  for (std::size_t i = 0; i < names.size(); ++i) names[i].append(".").append(std::to_string(i));
  return names;
}

}  // namespace tessaly::bench
