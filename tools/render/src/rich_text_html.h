// Rich-text runs as HTML: one span per run that has a text, in the run's colour when asked for and
// valid.
//
// Thread safety: stateless.
#ifndef LIVEVIEW_RENDER_RICH_TEXT_HTML_H
#define LIVEVIEW_RENDER_RICH_TEXT_HTML_H

#include <memory>
#include <string>
#include <vector>

#include "rich_text.h"

namespace LiveViewRender {

// <span data-part="run" [style="color:..."]>text</span> for each run; empty pointers and runs
// without text are skipped. withColors false draws every run in the surrounding colour.
std::string RunsHtml(const std::vector<std::shared_ptr<Tavi::Wisp::LiveView::RichText>>& runs,
                     bool withColors);

// A text field made of runs: Element(tag, cls, part, RunsHtml(...)), empty when no run has text.
std::string RunsField(const char* tag, const char* cls, const char* part,
                      const std::vector<std::shared_ptr<Tavi::Wisp::LiveView::RichText>>& runs,
                      bool withColors);

}  // namespace LiveViewRender

#endif  // LIVEVIEW_RENDER_RICH_TEXT_HTML_H
