#include "rich_text_view.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextCursor>
#include <algorithm>
#include <cstdint>
#include <optional>

#include "text/utf8.h"
#include "text/visible_text.h"

#include "readable_colour.h"

namespace tessaly::qt {

namespace {

// Text the model gives no colour keeps the palette's.
QTextCharFormat FormatIn(const Rgb* colour, const QPalette& palette) {
  QTextCharFormat format;
  if (colour != nullptr) format.setForeground(ReadableOn(palette, *colour));
  return format;
}


}  // namespace

RichTextView::RichTextView(RichTextBox& box, QWidget* parent)
    : QPlainTextEdit(parent), box_(box), pacer_(this, [this] { ResumeLayout(); }) {
  setReadOnly(true);
  setUndoRedoEnabled(false);
  setHidden(!box_.visible());
  rewrites_ = box_.rewrites() + 1;  // draw in full at the first refresh
  stale_ = true;
  following_ = box_.changed.Connect([this] { MarkStale(); });
}

void RichTextView::MarkStale() {
  if (isHidden() == box_.visible()) setHidden(!box_.visible());
  if (stale_) return;
  stale_ = true;
  QMetaObject::invokeMethod(this, &RichTextView::Refresh, Qt::QueuedConnection);
}

void RichTextView::showEvent(QShowEvent* event) {
  QPlainTextEdit::showEvent(event);
  Refresh();
}

void RichTextView::Refresh() {
  if (!stale_ || !isVisible()) return;  // a view off screen catches up when shown
  stale_ = false;
  // A margin means long lines run on to the right; without one they wrap.
  setLineWrapMode(box_.rightMargin() != 0 ? NoWrap : WidgetWidth);
  // A text drawn from the start is painted at once, so a page that has just
  // come up never shows what stood there before; only appends wait.
  if (box_.rewrites() != rewrites_ || box_.text().size() < drawnBytes_) {
    Restart();
  } else {
    HoldLayout();
  }
  ColourNewRuns();
  AppendRest();
}

void RichTextView::HoldLayout() {
  if (pacer_.Hold()) document()->documentLayout()->blockSignals(true);
}

void RichTextView::ResumeLayout() {
  QAbstractTextDocumentLayout* layout = document()->documentLayout();
  if (!layout->blockSignals(false)) return;
  emit layout->documentSizeChanged(layout->documentSize());
}

void RichTextView::Restart() {
  rewrites_ = box_.rewrites();
  document()->clear();
  drawnBytes_ = 0;
  drawnChars_ = 0;
  colouredRuns_ = 0;
  leftOut_.clear();
  lastWasCr_ = false;
}

int RichTextView::DocumentPosition(std::size_t character) const {
  const auto before = std::lower_bound(leftOut_.begin(), leftOut_.end(), character);
  return static_cast<int>(character - static_cast<std::size_t>(before - leftOut_.begin()));
}


void RichTextView::ColourNewRuns() {
  const auto& runs = box_.spans();
  QTextCursor cursor(document());
  for (; colouredRuns_ < runs.size(); ++colouredRuns_) {
    const ColourSpan& run = runs[colouredRuns_];
    if (run.start >= drawnChars_) break;  // drawn with its text below
    const std::size_t end = std::min(run.start + run.length, drawnChars_);
    cursor.setPosition(DocumentPosition(run.start));
    cursor.setPosition(DocumentPosition(end), QTextCursor::KeepAnchor);
    cursor.setCharFormat(FormatIn(&run.colour, palette()));
    if (run.start + run.length > drawnChars_) break;  // the rest is still to draw
  }
}

void RichTextView::AppendRest() {
  const std::string& text = box_.text();
  if (drawnBytes_ >= text.size()) return;
  QTextCursor cursor(document());
  cursor.beginEditBlock();
  const auto& runs = box_.spans();
  // Runs are in order and apart; walk the new text run by run.
  std::size_t run = colouredRuns_;
  while (run < runs.size() && runs[run].start + runs[run].length <= drawnChars_) ++run;
  while (drawnBytes_ < text.size()) {
    const ColourSpan* next = run < runs.size() ? &runs[run] : nullptr;
    if (next != nullptr && next->start <= drawnChars_) {
      const std::size_t characters = next->start + next->length - drawnChars_;
      const std::size_t end = text::ByteAfterChars(box_.text(), drawnBytes_, characters);
      Insert(drawnBytes_, end, drawnChars_, &next->colour);
      ++run;
    } else {
      const std::size_t characters = next != nullptr ? next->start - drawnChars_ : SIZE_MAX;
      const std::size_t end = text::ByteAfterChars(box_.text(), drawnBytes_, characters);
      Insert(drawnBytes_, end, drawnChars_, nullptr);
    }
  }
  cursor.endEditBlock();
  colouredRuns_ = std::max(colouredRuns_, run);
}

void RichTextView::Insert(std::size_t fromByte, std::size_t toByte, std::size_t fromChar,
                          const Rgb* colour) {
  const std::string& text = box_.text();
  std::string piece;
  piece.reserve(toByte - fromByte);
  std::size_t character = fromChar;
  for (std::size_t i = fromByte; i < toByte; ++i) {
    const char byte = text[i];
    // Printable ASCII, most of any name, shows as itself.
    if (static_cast<unsigned char>(byte - 0x20) < 0x5f) {
      piece.push_back(byte);
      lastWasCr_ = false;
      ++character;
      continue;
    }
    if (text::IsContinuationByte(byte)) {
      piece.push_back(byte);
      continue;
    }
    if (byte == '\n' && lastWasCr_) {
      leftOut_.push_back(character);
      lastWasCr_ = false;
      ++character;
      continue;
    }
    ++character;
    // A CR is a line end when an LF follows, or may still follow.
    lastWasCr_ = byte == '\r' && (i + 1 == text.size() || text[i + 1] == '\n');
    if (lastWasCr_) {
      piece.push_back('\n');
      continue;
    }
    // Anything else that would act as layout shows as a picture of itself,
    // one character for one, so the runs' positions still hold.
    const text::DecodedChar decoded = text::DecodeAt(text, i);
    const std::optional<char32_t> picture = text::ControlPicture(decoded.code);
    if (picture && i + decoded.length <= toByte) {
      text::AppendChar(piece, *picture);
      i += decoded.length - 1;
    } else {
      piece.push_back(byte);
    }
  }
  QTextCursor cursor(document());
  cursor.movePosition(QTextCursor::End);
  cursor.insertText(QString::fromUtf8(piece.data(), static_cast<qsizetype>(piece.size())),
                    FormatIn(colour, palette()));
  drawnBytes_ = toByte;
  drawnChars_ = character;
}

}  // namespace tessaly::qt
