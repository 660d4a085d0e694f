#ifndef TESSALY_CONTROLS_RICH_TEXT_BOX_H_
#define TESSALY_CONTROLS_RICH_TEXT_BOX_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"

namespace tessaly {

struct Rgb {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  friend bool operator==(const Rgb&, const Rgb&) = default;
};

// A run of characters drawn in one colour; text outside every run is
// black.
struct ColourSpan {
  std::size_t start = 0;  // in characters
  std::size_t length = 0;
  Rgb colour;
  friend bool operator==(const ColourSpan&, const ColourSpan&) = default;
};

// A multi-line text with coloured runs, an insertion point and a
// selection, counted in characters. Text is only ever inserted at the
// insertion point, so writing line after line at the end stays cheap.
class RichTextBox : public Control {
 public:
  const std::string& text() const { return text_; }
  // Replaces the whole text; colours go, the insertion point goes to 0.
  void SetText(std::string text);
  std::size_t Length() const { return length_; }
  // Makes room for a text of `bytes` bytes with `runs` coloured runs, so
  // that a long text written line by line is not moved as it grows: for a
  // moment, a move holds the old room and the new.
  void Reserve(std::size_t bytes, std::size_t runs = 0) {
    text_.reserve(bytes);
    spans_.reserve(runs);
  }

  std::size_t selStart() const { return selStart_; }
  std::size_t selLength() const { return selLength_; }
  void SetSelStart(std::size_t start);
  void SetSelLength(std::size_t length);
  // Puts `text` in place of the selection and leaves the insertion point
  // behind it.
  void SetSelText(std::string_view text);
  // Colours the selected characters.
  void SetSelColor(Rgb colour);

  const std::vector<ColourSpan>& spans() const { return spans_; }
  // The colour of the character at `position`.
  Rgb ColourAt(std::size_t position) const;

  // How far right a line may run before it wraps, in the form's unit.
  long rightMargin() const { return rightMargin_; }
  void SetRightMargin(long margin) { Update(rightMargin_, margin); }

  // Goes up with every edit that changes text or colours anywhere but
  // behind the end. A view that follows appends can draw only what was
  // added while it stays the same, and must redraw in full when it moves.
  std::uint64_t rewrites() const { return rewrites_; }

 private:
  std::size_t ByteOffset(std::size_t position) const;
  bool BehindEveryRun(std::size_t position) const {
    return spans_.empty() || spans_.back().start + spans_.back().length <= position;
  }
  // Moves and cuts the runs around a replaced selection.
  void ShiftSpans(std::size_t inserted);

  std::string text_;
  std::size_t length_ = 0;
  std::size_t selStart_ = 0;
  std::size_t selLength_ = 0;
  std::vector<ColourSpan> spans_;
  long rightMargin_ = 0;
  std::uint64_t rewrites_ = 0;
};

}  // namespace tessaly

#endif  // TESSALY_CONTROLS_RICH_TEXT_BOX_H_
