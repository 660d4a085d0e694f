#ifndef TESSALY_APP_QT_RICH_TEXT_VIEW_H_
#define TESSALY_APP_QT_RICH_TEXT_VIEW_H_

#include <QPlainTextEdit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "controls/rich_text_box.h"
#include "paint_pacer.h"

namespace tessaly::qt {

// A read-only view of a RichTextBox: its text with each coloured run, in
// one font. The log and the preview grow line by line to 32,767 lines, each
// line several edits of the box, so edits only mark the view stale; one
// refresh follows when the event loop next runs, and none while the view is
// off screen. A refresh appends what was written behind the end and colours
// the new runs; only an edit before the end (the box's `rewrites`) draws
// the whole text anew. While lines keep coming the text is kept whole, but
// it is laid out and painted only every few tens of milliseconds.
class RichTextView : public QPlainTextEdit {
 public:
  RichTextView(RichTextBox& box, QWidget* parent);

  // Brings the view in line with the box now.
  void Refresh();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void MarkStale();
  // Laying out each line as it comes, to find the scroll bars' range,
  // would cost more than the run: while painting waits, the document's
  // layout keeps its news, and tells them all at once when it resumes.
  void HoldLayout();
  void ResumeLayout();
  void Restart();
  // Appends the box's text behind what is drawn, run by run.
  void AppendRest();
  void Insert(std::size_t fromByte, std::size_t toByte, std::size_t fromChar, const Rgb* colour);
  // Colours the runs of the box that were added over text already drawn.
  void ColourNewRuns();
  int DocumentPosition(std::size_t character) const;

  RichTextBox& box_;
  bool stale_ = false;
  std::uint64_t rewrites_ = 0;
  std::size_t drawnBytes_ = 0;
  std::size_t drawnChars_ = 0;
  std::size_t colouredRuns_ = 0;
  // A CR LF pair is one line break here: the CR draws it and the LF is
  // left out. These are the box's positions of the left-out characters.
  std::vector<std::size_t> leftOut_;
  bool lastWasCr_ = false;
  PaintPacer pacer_;
  Connection following_;  // last, so it goes first
};

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_RICH_TEXT_VIEW_H_
