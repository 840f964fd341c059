#include "bench/support/Layouts.h"

#include <hb-ot.h>

#include <QApplication>
#include <QFontInfo>
#include <algorithm>
#include <cstdlib>
#include <optional>

#include "platform/FontCatalog.h"
#include "platform/FontGlyphs.h"
#include "textlayout/Orv.FontGlyphs.h"

namespace orv::bench {

void UseGlyphs() {
  static const bool used = [] {
    TFontGlyphManagerOrv::SetCurrent(std::make_unique<TBackEndFontGlyphManager>(platform::MakeFontGlyphs()));
    return true;
  }();
  static_cast<void>(used);
}

QFont QtFont() {
  static int count = 1;
  static char name[] = "orv_bench";
  static char* arguments[] = {name, nullptr};
  static const std::unique_ptr<QApplication> application = [] {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    return std::make_unique<QApplication>(count, arguments);
  }();
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(FontPixels);
  return font;
}

TParagraphs::TParagraphs(const TCorpus& corpus) {
  for (const std::u16string_view text : corpus.Paragraphs()) {
    if (!FTexts.empty() && FTexts.back() == text) continue;
    if (FUnits + static_cast<std::int64_t>(text.size()) > MostUnits) break;
    FTexts.push_back(text);
    FUnits += static_cast<std::int64_t>(text.size());
  }
  if (FTexts.size() > 1 && FTexts.back() == FTexts.front()) {
    FUnits -= static_cast<std::int64_t>(FTexts.back().size());
    FTexts.pop_back();
  }
}

std::unique_ptr<TTextLayoutNGOrv> MakeLayout(TLines lines) {
  UseGlyphs();
  auto layout = std::make_unique<TTextLayoutNGOrv>();
  layout->BeginUpdate();
  layout->SetFont({u"DejaVu Sans", FontPixels});
  if (lines == TLines::Wrapped) layout->SetMaxSize({BoxWidth, fmx::MaxLayoutSide});
  layout->SetWordWrap(lines == TLines::Wrapped);
  layout->EndUpdate();
  return layout;
}

// --- Qt ---

TQtLayout::TQtLayout(TLines lines) : FLineWidth(lines == TLines::Wrapped ? BoxWidth : 1e6) {
  FLayout.setFont(QtFont());
}

bool TQtLayout::HasFont() {
  return QFontInfo(QtFont()).family() == QStringLiteral("DejaVu Sans");
}

double TQtLayout::SetText(const QString& text) {
  FLayout.setText(text);
  FHeight = 0;
  FLayout.beginLayout();
  for (QTextLine line = FLayout.createLine(); line.isValid(); line = FLayout.createLine()) {
    line.setLineWidth(FLineWidth);
    line.setPosition({0, FHeight});
    FHeight += line.height();
  }
  FLayout.endLayout();
  return FHeight;
}

double TQtLayout::Width() const {
  double width = 0;
  for (int i = 0; i < FLayout.lineCount(); ++i) width = std::max(width, FLayout.lineAt(i).naturalTextWidth());
  return width;
}

QTextLine TQtLayout::LineAt(double y) const {
  int first = 0;
  int count = FLayout.lineCount();
  while (count > 1) {  // the line is one of these
    const int half = count / 2;
    if (FLayout.lineAt(first + half).y() <= y) {
      first += half;
      count -= half;
    } else {
      count = half;
    }
  }
  return FLayout.lineAt(first);
}

int TQtLayout::PositionAtPoint(double x, double y) const {
  return LineAt(y).xToCursor(x);
}

fmx::TRectF TQtLayout::RegionOf(int position) const {
  const QTextLine line = FLayout.lineForTextPosition(position);
  const auto x1 = static_cast<float>(line.cursorToX(position));
  const auto x2 = static_cast<float>(line.cursorToX(position + 1));
  const auto top = static_cast<float>(line.y());
  return {std::min(x1, x2), top, std::max(x1, x2), top + static_cast<float>(line.height())};
}

QString ToQt(std::u16string_view text) {
  return QString::fromUtf16(text.data(), static_cast<int>(text.size()));
}

// --- HarfBuzz ---

THarfBuzz::THarfBuzz() : FBuffer(hb_buffer_create()) {
  const std::optional<platform::TFontFile> file = platform::TFontCatalog().Find("DejaVu Sans");
  if (!file || file->Family != "DejaVu Sans") return;
  hb_blob_t* blob = hb_blob_create_from_file(file->Path.c_str());
  hb_face_t* face = hb_face_create(blob, static_cast<unsigned>(file->Index));
  FFont.reset(hb_font_create(face));
  hb_font_set_scale(FFont.get(), FontPixels * 64, FontPixels * 64);
  hb_ot_font_set_funcs(FFont.get());
  hb_face_destroy(face);
  hb_blob_destroy(blob);
}

std::int64_t THarfBuzz::Shape(std::u16string_view paragraph) {
  hb_buffer_clear_contents(FBuffer.get());
  const auto length = static_cast<int>(paragraph.size());
  hb_buffer_add_utf16(FBuffer.get(), reinterpret_cast<const std::uint16_t*>(paragraph.data()), length, 0, length);
  hb_buffer_guess_segment_properties(FBuffer.get());
  hb_shape(FFont.get(), FBuffer.get(), nullptr, 0);
  unsigned count = 0;
  const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(FBuffer.get(), &count);
  std::int64_t advance = 0;
  for (unsigned i = 0; i < count; ++i) advance += positions[i].x_advance;
  return advance;
}

}  // namespace orv::bench
