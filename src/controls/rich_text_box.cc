#include "controls/rich_text_box.h"

#include <algorithm>

#include "text/utf8.h"

namespace tessaly {

void RichTextBox::SetText(std::string text) {
  // Swapped, not assigned: a short text assigned would keep all the room a
  // long one had.
  text_.swap(text);
  ++rewrites_;
  length_ = text::CharCount(text_);
  selStart_ = 0;
  selLength_ = 0;
  spans_.clear();
  changed.Emit();
}

void RichTextBox::SetSelStart(std::size_t start) {
  // Moving the insertion point drops the selection, as the desktop box does.
  selStart_ = std::min(start, length_);
  selLength_ = 0;
  changed.Emit();
}

void RichTextBox::SetSelLength(std::size_t length) {
  selLength_ = std::min(length, length_ - selStart_);
  changed.Emit();
}

std::size_t RichTextBox::ByteOffset(std::size_t position) const {
  if (position >= length_) return text_.size();
  std::size_t offset = 0;
  for (std::size_t i = 0; i < position; ++i) offset += text::DecodeAt(text_, offset).length;
  return offset;
}

void RichTextBox::SetSelText(std::string_view text) {
  const std::size_t begin = ByteOffset(selStart_);
  const std::size_t end = selLength_ == 0 ? begin : ByteOffset(selStart_ + selLength_);
  const std::size_t inserted = text::CharCount(text);
  if (selLength_ > 0 || selStart_ < length_) ++rewrites_;
  text_.replace(begin, end - begin, text);
  // Writing behind every coloured run, the usual case, moves no run.
  if (!BehindEveryRun(selStart_)) ShiftSpans(inserted);
  length_ = length_ - selLength_ + inserted;
  selStart_ += inserted;
  selLength_ = 0;
  changed.Emit();
}

void RichTextBox::ShiftSpans(std::size_t inserted) {
  // Runs behind the replaced characters move with them; runs across them
  // are cut down to what is left.
  const std::size_t removedEnd = selStart_ + selLength_;
  std::vector<ColourSpan> kept;
  for (ColourSpan span : spans_) {
    const std::size_t spanEnd = span.start + span.length;
    if (spanEnd <= selStart_) {
      kept.push_back(span);
    } else if (span.start >= removedEnd) {
      span.start = span.start - selLength_ + inserted;
      kept.push_back(span);
    } else {
      const std::size_t before = selStart_ > span.start ? selStart_ - span.start : 0;
      const std::size_t after = spanEnd > removedEnd ? spanEnd - removedEnd : 0;
      if (before > 0) kept.push_back({span.start, before, span.colour});
      if (after > 0) kept.push_back({selStart_ + inserted, after, span.colour});
    }
  }
  spans_ = std::move(kept);
}

void RichTextBox::SetSelColor(Rgb colour) {
  if (selLength_ == 0) return;
  const std::size_t start = selStart_;
  const std::size_t end = selStart_ + selLength_;
  if (BehindEveryRun(start)) {
    spans_.push_back({start, selLength_, colour});
    changed.Emit();
    return;
  }
  ++rewrites_;
  std::vector<ColourSpan> kept;
  for (const ColourSpan& span : spans_) {
    const std::size_t spanEnd = span.start + span.length;
    if (spanEnd <= start || span.start >= end) {
      kept.push_back(span);
      continue;
    }
    if (span.start < start) kept.push_back({span.start, start - span.start, span.colour});
    if (spanEnd > end) kept.push_back({end, spanEnd - end, span.colour});
  }
  kept.push_back({start, selLength_, colour});
  std::sort(kept.begin(), kept.end(),
            [](const ColourSpan& a, const ColourSpan& b) { return a.start < b.start; });
  spans_ = std::move(kept);
  changed.Emit();
}

Rgb RichTextBox::ColourAt(std::size_t position) const {
  const auto after = std::upper_bound(
      spans_.begin(), spans_.end(), position,
      [](std::size_t p, const ColourSpan& span) { return p < span.start; });
  if (after == spans_.begin()) return {};
  const ColourSpan& span = *(after - 1);
  return position < span.start + span.length ? span.colour : Rgb{};
}

}  // namespace tessaly
