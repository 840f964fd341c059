#include "tools/orv/show/Marks.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <utility>

#include "rtl/Unicode.h"

namespace orv::show {
namespace {

using platform::TGlyph;

enum class TMarkPlace : std::uint8_t {
  AsDrawn,  // where the font puts it behind the letter's advance
  Above,
  Below,
  Inside,
  AboveRight,
  AboveLeft,
};

struct TMarkRange {
  std::uint32_t First;
  std::uint32_t Last;
  TMarkPlace Place;
};

// In order; what lies in Hebrew or Arabic and is not listed stands above.
constexpr TMarkRange MarkRanges[] = {
    {0x0591, 0x0591, TMarkPlace::Below},     {0x0596, 0x0596, TMarkPlace::Below},
    {0x059B, 0x059B, TMarkPlace::Below},     {0x05A2, 0x05A7, TMarkPlace::Below},
    {0x05AA, 0x05AA, TMarkPlace::Below},     {0x05AD, 0x05AD, TMarkPlace::Below},
    {0x05B0, 0x05B8, TMarkPlace::Below},     {0x05B9, 0x05BA, TMarkPlace::AboveLeft},
    {0x05BB, 0x05BB, TMarkPlace::Below},     {0x05BC, 0x05BC, TMarkPlace::Inside},
    {0x05BD, 0x05BD, TMarkPlace::Below},     {0x05C1, 0x05C1, TMarkPlace::AboveRight},
    {0x05C2, 0x05C2, TMarkPlace::AboveLeft}, {0x05C5, 0x05C5, TMarkPlace::Below},
    {0x05C7, 0x05C7, TMarkPlace::Below},     {0x061A, 0x061A, TMarkPlace::Below},
    {0x064D, 0x064D, TMarkPlace::Below},     {0x0650, 0x0650, TMarkPlace::Below},
    {0x0655, 0x0656, TMarkPlace::Below},     {0x065C, 0x065C, TMarkPlace::Below},
    {0x065F, 0x065F, TMarkPlace::Below},     {0x06E3, 0x06E3, TMarkPlace::Below},
    {0x06EA, 0x06EA, TMarkPlace::Below},     {0x06ED, 0x06ED, TMarkPlace::Below},
    {0xFE74, 0xFE74, TMarkPlace::Below},     {0xFE7A, 0xFE7A, TMarkPlace::Below},
};

bool IsArabicMarkForm(std::uint32_t c) {
  return (c >= 0xFC5E && c <= 0xFC63) || c == 0xFE70 || (c >= 0xFE72 && c <= 0xFE7E && c % 2 == 0);
}

TMarkPlace PlaceOf(std::uint32_t c) {
  for (const TMarkRange& range : MarkRanges)
    if (c >= range.First && c <= range.Last) return range.Place;
  return (c >= 0x0591 && c <= 0x06FF) || c == 0xFB1E || IsArabicMarkForm(c) ? TMarkPlace::Above : TMarkPlace::AsDrawn;
}

bool IsLamAlef(std::uint32_t c) {
  return c >= 0xFEF5 && c <= 0xFEFC;
}

constexpr std::uint32_t FinalKaf = 0x05DA;

// A stretch of columns, the right one not included.
struct TColumns {
  int Left = 0;
  int Right = 0;
  int Centre() const { return (Left + Right) / 2; }
  int Width() const { return Right - Left; }
};

bool HasInk(const TGlyph& glyph, int x, int y) {
  constexpr int faint = 64;
  return glyph.Coverage[static_cast<std::size_t>(y) * static_cast<std::size_t>(glyph.Width) +
                        static_cast<std::size_t>(x)] >= faint;
}

// Lowest and highest ink of a placed glyph in the columns, in pixels above the base line.
struct TInk {
  int Bottom = 0;
  int Top = 0;
};
std::optional<TInk> InkIn(const TPlacedGlyph& placed, TColumns columns) {
  const TGlyph& glyph = *placed.Glyph;
  const int first = std::max(0, columns.Left - placed.Left);
  const int last = std::min(glyph.Width, columns.Right - placed.Left);
  std::optional<TInk> ink;
  for (int y = 0; y < glyph.Height; ++y)
    for (int x = first; x < last; ++x) {
      if (!HasInk(glyph, x, y)) continue;
      const int top = placed.Top - y;
      if (!ink) ink = TInk{top - 1, top};
      ink->Bottom = top - 1;
    }
  return ink;
}

std::optional<TInk> InkIn(std::span<const TPlacedGlyph> placed, TColumns columns) {
  std::optional<TInk> all;
  for (const TPlacedGlyph& one : placed) {
    const auto ink = InkIn(one, columns);
    if (!ink) continue;
    all = all ? TInk{std::min(all->Bottom, ink->Bottom), std::max(all->Top, ink->Top)} : *ink;
  }
  return all;
}

// The part of the letter that a mark belongs to.
class TAnchor {
 public:
  TAnchor(std::uint32_t letter, const TGlyph& glyph, std::span<const TMark> marks)
      : FLetter(letter), FInk{glyph.Left, glyph.Left + glyph.Width} {
    if (glyph.Width == 0) FInk = {0, static_cast<int>(std::lround(glyph.Advance))};
    for (const TMark& mark : marks) FVowels += IsVowel(mark.CodePoint) ? 1 : 0;
  }

  TColumns For(std::uint32_t mark) {
    if (IsLamAlef(FLetter)) return IsOnAlef(mark) ? Part(0, 4) : Part(4, 10);
    if (FLetter == FinalKaf && PlaceOf(mark) == TMarkPlace::Below) return Part(0, 7);
    return FInk;
  }

 private:
  static bool IsVowel(std::uint32_t c) { return IsArabicMarkForm(c) && c != 0xFE7C; }

  // Two vowels are one for each letter, in their order. One alone belongs to the lam, but for the alefs that carry a
  // hamza and for the endings that are written on an alef.
  bool IsOnAlef(std::uint32_t mark) {
    if (!IsVowel(mark)) return FSeen > 0 && FVowels > 1;
    ++FSeen;
    if (FVowels > 1) return FSeen > 1;
    const bool hamza = FLetter >= 0xFEF5 && FLetter <= 0xFEFA;
    const bool ending = mark == 0xFE70 || mark == 0xFE72 || mark == 0xFE74;
    return hamza || ending;
  }

  TColumns Part(int from, int to) const {
    return {FInk.Left + FInk.Width() * from / 10, FInk.Left + FInk.Width() * to / 10};
  }

  std::uint32_t FLetter;
  TColumns FInk;
  int FVowels = 0;
  int FSeen = 0;
};

int LeftOf(const TGlyph& mark, TMarkPlace place, TColumns anchor) {
  const int centred = anchor.Centre() - mark.Width / 2;
  if (place == TMarkPlace::AboveRight) return anchor.Right - mark.Width - std::max(0, anchor.Width() / 12);
  if (place == TMarkPlace::AboveLeft) return anchor.Left + std::max(0, anchor.Width() / 12);
  return centred;
}

// Kept as low, or as high, as the ink allows: a mark stays by its letter.
int TopOf(const TGlyph& mark, TMarkPlace place, const std::optional<TInk>& ink, double pixelSize) {
  const int gap = std::max(1, static_cast<int>(std::lround(pixelSize / 18)));
  if (!ink || place == TMarkPlace::Inside || place == TMarkPlace::AsDrawn) return mark.Top;
  if (place == TMarkPlace::Below) return std::min(static_cast<int>(-pixelSize / 12), ink->Bottom - gap);
  const int lowest = std::min(mark.Bottom(), static_cast<int>(pixelSize * 0.42));
  return std::max(lowest, ink->Top + gap) + mark.Height;
}

}  // namespace

bool IsMark(std::uint32_t codePoint) {
  using enum rtl::TUnicodeCategory;
  const auto category = rtl::GetUnicodeCategory(codePoint);
  return category == Mn || category == Me || IsArabicMarkForm(codePoint);
}

std::vector<TPlacedGlyph> PlaceMarks(std::uint32_t letter, const TGlyph& glyph, std::span<const TMark> marks,
                                     double pixelSize) {
  std::vector<TPlacedGlyph> placed = {{&glyph, glyph.Left, glyph.Top}};
  TAnchor anchor(letter, glyph, marks);
  for (const TMark& mark : marks) {
    const TMarkPlace place = PlaceOf(mark.CodePoint);
    if (place == TMarkPlace::AsDrawn) {
      const int advance = static_cast<int>(std::lround(glyph.Advance));
      placed.push_back({mark.Glyph, advance + mark.Glyph->Left, mark.Glyph->Top});
      continue;
    }
    const TColumns columns = anchor.For(mark.CodePoint);
    const int left = LeftOf(*mark.Glyph, place, columns);
    const auto ink = InkIn(placed, {left, left + mark.Glyph->Width});
    placed.push_back({mark.Glyph, left, TopOf(*mark.Glyph, place, ink, pixelSize)});
  }
  return placed;
}

}  // namespace orv::show
