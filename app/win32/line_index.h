#ifndef TESSALY_APP_WIN32_LINE_INDEX_H_
#define TESSALY_APP_WIN32_LINE_INDEX_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly::win32 {

// Where each line of a growing UTF-8 text starts, counted three ways: in
// bytes (to read it), in characters (the model's positions, where its
// colours lie) and in the UTF-16 units a window shows it in. A CR LF pair
// ends a line; every other character is shown as one character (a control
// character as its picture), so it takes one unit, or two beyond the BMP.
// Text added behind the end is indexed by looking at the new bytes only.
class LineIndex {
 public:
  struct Line {
    std::size_t byte = 0;
    std::size_t character = 0;
    std::size_t unit = 0;
  };

  void Clear();
  // Indexes what `text` holds behind what was indexed (the text up to there
  // must be the one indexed). Returns the first line that changed.
  std::size_t Extend(std::string_view text);

  // Lines, the last one (which may still grow) included: at least one.
  std::size_t Count() const { return lines_.size(); }
  const Line& operator[](std::size_t line) const { return lines_[line]; }
  // The end of a line's own text, its line end left out.
  std::size_t EndByte(std::size_t line) const;
  std::size_t EndUnit(std::size_t line) const;
  // All units of the text, line ends (two each) included.
  std::size_t Units() const { return openUnit_; }
  std::size_t LineOfUnit(std::size_t unit) const;
  std::size_t LineOfCharacter(std::size_t character) const;

  // A line's text as it is shown, with the model's character behind each
  // unit (each unit of a pair gets the pair's character).
  static void Shown(std::string_view line, std::size_t firstCharacter, std::wstring& units,
                    std::vector<std::size_t>& characters);

 private:
  std::vector<Line> lines_{Line{}};
  // Counts at the end of what is indexed.
  std::size_t scannedByte_ = 0;
  std::size_t openCharacter_ = 0;
  std::size_t openUnit_ = 0;
};

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_LINE_INDEX_H_
