// From text to lines.
#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "fmx/GPUTextLayout.h"
#include "rtl/Strings.h"
#include "rtl/Unicode.h"

namespace fmx {
namespace {

constexpr std::uint32_t Ellipsis = 0x2026;
constexpr std::uint32_t Tab = '\t';
constexpr float BlanksOfATab = 8;

bool IsLineEnd(char16_t c) {
  return c == u'\n' || c == u'\r' || c == u'\x2028' || c == u'\x2029';
}

bool IsBlank(std::uint32_t c) {
  return c == Tab || rtl::GetUnicodeCategory(c) == rtl::TUnicodeCategory::Zs;
}

// The units of the line end at the index.
std::int32_t LineEndLength(std::u16string_view text, std::int32_t index) {
  return rtl::UnitAt(text, index) == u'\r' && rtl::UnitAt(text, index + 1) == u'\n' ? 2 : 1;
}

// From the pen to the next stop.
float TabAdvance(float pen, float blank) {
  const float stop = BlanksOfATab * blank;
  return stop > 0 ? (std::floor(pen / stop) + 1) * stop - pen : 0;
}

}  // namespace

// All or nothing: where it fails, the lines stay those of before.
void TGPUTextLayout::LayOut(float scale) {
  const float scaleBefore = std::exchange(FScale, scale);
  auto formatsBefore = std::exchange(FFormats, {});
  auto linesBefore = std::exchange(FLines, {});
  try {
    KeepFormats();
    MakeLines();
  } catch (...) {
    FScale = scaleBefore;
    FFormats = std::move(formatsBefore);
    FLines = std::move(linesBefore);
    throw;
  }
}

void TGPUTextLayout::MakeLines() {
  const std::u16string_view text = Text();
  const auto length = static_cast<std::int32_t>(text.size());
  const float room = MaxSize().X - Padding().Left - Padding().Right;
  for (std::int32_t start = 0;;) {
    std::int32_t end = start;
    while (end < length && !IsLineEnd(text[static_cast<std::size_t>(end)])) ++end;
    AddParagraph(start, end, room);
    if (end == length) break;
    start = end + LineEndLength(text, end);
  }
  Align();
}

std::vector<TGPUTextLayout::TCell> TGPUTextLayout::CellsOf(std::int32_t start, std::int32_t end) const {
  std::vector<TCell> cells;
  float width = 0;
  TFormat last = 0;
  TFontGlyphs* glyphs = &GlyphsOf(last);
  for (std::int32_t pos = start; pos < end;) {
    std::int32_t units = 1;
    const std::uint32_t c = rtl::ConvertToUtf32(Text(), pos, units);
    const TFormat format = FormatAt(pos);
    if (format != last) glyphs = &GlyphsOf(format);
    last = format;
    const float advance =
        c == Tab ? TabAdvance(width, glyphs->Metrics(' ').Advance / FScale) : glyphs->Metrics(c).Advance / FScale;
    cells.push_back({pos, units, c, advance, format});
    width += advance;
    pos += units;
  }
  return cells;
}

void TGPUTextLayout::AddParagraph(std::int32_t start, std::int32_t end, float room) {
  std::vector<TCell> cells = CellsOf(start, end);
  if (!WordWrap()) {
    if (Trimming() != TTextTrimming::None) Trim(cells, room);
    AddLine(start, end, cells);
    return;
  }
  const std::span<const TCell> all = cells;
  std::size_t first = 0;  // of the line
  std::size_t wordStart = 0;
  float width = 0;
  const auto endLine = [&](std::size_t next) {
    AddLine(all[first].Pos, all[next].Pos, all.subspan(first, next - first));
    first = next;
  };
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (IsBlank(all[i].Char)) {
      wordStart = i + 1;
    } else if (width + all[i].Advance > room && i > first) {
      endLine(wordStart > first ? wordStart : i);
      width = std::accumulate(all.begin() + static_cast<std::ptrdiff_t>(first),
                              all.begin() + static_cast<std::ptrdiff_t>(i), 0.0F,
                              [](float sum, const TCell& cell) { return sum + cell.Advance; });
      if (width + all[i].Advance > room && i > first) {  // the word's own beginning fills the line
        endLine(i);
        width = 0;
      }
    }
    width += all[i].Advance;
  }
  AddLine(first < all.size() ? all[first].Pos : end, end, all.subspan(first));
}

void TGPUTextLayout::Trim(std::vector<TCell>& cells, float room) const {
  const float all = std::accumulate(cells.begin(), cells.end(), 0.0F,
                                    [](float sum, const TCell& cell) { return sum + cell.Advance; });
  if (all <= room || cells.empty()) return;
  const float ellipsis = GlyphsOf(0).Metrics(Ellipsis).Advance / FScale;
  std::size_t kept = 0;
  for (float width = ellipsis; kept < cells.size() && width + cells[kept].Advance <= room; ++kept) {
    width += cells[kept].Advance;
  }
  kept = std::min(kept, cells.size() - 1);
  if (Trimming() == TTextTrimming::Word) {
    std::size_t word = kept;  // back to the end of a word, unless there is none
    while (word > 0 && !IsBlank(cells[word].Char)) --word;
    while (word > 0 && IsBlank(cells[word - 1].Char)) --word;
    if (word > 0) kept = word;
  }
  const std::int32_t cut = cells[kept].Pos;
  cells.resize(kept);
  cells.push_back({cut, 0, Ellipsis, ellipsis, 0});
}

void TGPUTextLayout::AddLine(std::int32_t start, std::int32_t end, std::span<const TCell> cells) {
  TLine line{start, end, {}, 0, {cells.begin(), cells.end()}};
  float below = 0;
  const auto take = [&](TFormat format, std::uint32_t c) {
    TFontGlyphs& glyphs = GlyphsOf(format);
    const float baseline = glyphs.Baseline() / FScale;
    line.Baseline = std::max(line.Baseline, baseline);
    below = std::max(below, glyphs.Metrics(c == Tab ? ' ' : c).VerticalAdvance / FScale - baseline);
  };
  for (const TCell& cell : cells) {
    take(cell.Format, cell.Char);
    line.Box.Right += cell.Advance;
  }
  if (cells.empty()) take(FormatAt(start), ' ');
  line.Box.Bottom = line.Baseline + below;
  FLines.push_back(std::move(line));
}

void TGPUTextLayout::Align() {
  const auto place = [](TTextAlign align, float before, float after, float side, float size) {
    if (align == TTextAlign::Leading || side >= MaxLayoutSide) return before;
    const float rest = side - before - after - size;
    return before + (align == TTextAlign::Center ? rest / 2 : rest);
  };
  float height = 0;
  for (const TLine& line : FLines) height += line.Box.Height();
  float y = place(VerticalAlign(), Padding().Top, Padding().Bottom, MaxSize().Y, height);
  for (TLine& line : FLines) {
    const float x = place(HorizontalAlign(), Padding().Left, Padding().Right, MaxSize().X, line.Box.Width());
    line.Box = line.Box.Offset(x, y);
    y += line.Box.Height();
  }
}

}  // namespace fmx
