#include "examples/gallery/State.h"

#include <algorithm>
#include <cstdio>

#include "editing/Orv.Edit.Style.h"
#include "rtl/Utf8.h"

namespace gallery {

std::int32_t TBoxState::Begin() const {
  return std::min(SelStart, SelStart + SelLength);
}
std::int32_t TBoxState::End() const {
  return std::max(SelStart, SelStart + SelLength);
}

TBoxState StateOf(fmx::TCustomEdit& edit) {
  TBoxState state;
  auto* const presentation = dynamic_cast<orv::TOrvStyledEdit*>(edit.Presentation());
  if (presentation == nullptr) return state;
  fmx::TCustomEditModel& model = edit.Model();
  state.Text = presentation->GetText();
  state.Composing = presentation->GetTextService()->MarkedText();
  state.Selected = model.SelectedText();
  state.Caret = presentation->GetCaretPosition();
  state.SelStart = model.SelStart();
  state.SelLength = model.SelLength();
  state.FirstVisible = presentation->View().FirstVisibleChar();
  state.RightToLeft = presentation->HorizontalAlignment() == fmx::TTextAlign::Trailing;
  const auto* const content = dynamic_cast<fmx::TControl*>(presentation->FindStyleResource("content"));
  const fmx::TCustomCaret& caret = model.Caret();
  const fmx::TPointF middle = caret.Position() + fmx::TPointF{caret.Size().Width / 2, caret.Size().Height / 2};
  if (content != nullptr) state.CaretPlace = content->LocalToAbsolute(middle);
  return state;
}

std::string Quoted(std::u16string_view text) {
  std::string quoted = "\"";
  for (const char c : rtl::ToUtf8(text)) {
    char escaped[8];
    if (c == '"' || c == '\\')
      quoted.append({'\\', c});
    else if (static_cast<unsigned char>(c) < 0x20)
      quoted.append(escaped, static_cast<std::size_t>(std::snprintf(escaped, sizeof escaped, "\\u%04x", c)));
    else
      quoted.push_back(c);
  }
  return quoted + '"';
}

}  // namespace gallery
