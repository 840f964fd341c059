#include "unicode/Unicode.Engine.Corrections.h"

#include <algorithm>

#include "unicode/Unicode.Engine.Vectors.h"

namespace orv::engine {
namespace {

// Builds the runs anew, each former run giving any number of pieces that take its place in the visual order.
class TRecutter {
 public:
  explicit TRecutter(TRecutStorage& storage) : FStorage(storage) {
    FStorage.Pieces.clear();
    FStorage.FirstPieces.clear();
    FStorage.VisualOrder.clear();
  }

  // Called once for each former run, in logical order, before its pieces.
  void BeginRun() { FStorage.FirstPieces.push_back(FStorage.Pieces.size()); }
  void Add(std::int32_t end, TBidi bidi) { FStorage.Pieces.push_back({end, bidi}); }

  bool LineIsEmpty() const {
    return FStorage.Pieces.empty() || FStorage.Pieces.back().Bidi == TBidi::ParagraphSeparator;
  }
  void ExtendLast(std::int32_t end) { FStorage.Pieces.back().End = end; }

  void PutInto(TDirectionalRuns& runs) {
    BeginRun();
    for (const std::int32_t run : runs.VisualOrder) {
      const auto index = static_cast<std::size_t>(run);
      for (std::size_t piece = FStorage.FirstPieces[index]; piece < FStorage.FirstPieces[index + 1]; ++piece)
        FStorage.VisualOrder.push_back(static_cast<std::int32_t>(piece));
    }
    runs.VisualOrder = FStorage.VisualOrder;  // each keeps its own storage
    runs.Offsets.resize(1);
    runs.Bidi.clear();
    for (const TRunPiece& piece : FStorage.Pieces) {
      runs.Offsets.push_back(piece.End);
      runs.Bidi.push_back(piece.Bidi);
    }
  }

 private:
  TRecutStorage& FStorage;
};

// The end of the line end that begins at the place; the place itself where none begins.
std::int32_t LineEndBehind(const TText& text, std::int32_t place) {
  const char16_t c = text[place];
  if (IsLineFeedOrReturn(c)) return text.At(place + 1) == u'\n' ? place + 2 : place + 1;
  return ClassOf(c).In(LineSeparators) ? place + 1 : place;
}

// Where the line end begins that ends at the place; from at the earliest.
std::int32_t LineEndBefore(const TText& text, std::int32_t from, std::int32_t place) {
  if (place - from >= 2 && text[place - 1] == u'\n' && IsLineFeedOrReturn(text[place - 2])) return place - 2;
  return place - 1;
}

// Whether every separator entry is its line end. A line end that no entry stands for lies behind a blank; the reader
// has told of those.
bool SeparatorsAreLineEnds(const TText& text, const TDirectionalRuns& runs) {
  for (std::size_t run = 0; run < runs.Bidi.size(); ++run) {
    if (runs.Bidi[run] != TBidi::ParagraphSeparator) continue;
    const std::int32_t from = runs.Offsets[run];
    const std::int32_t end = runs.Offsets[run + 1];
    if (from == end || LineEndBefore(text, from, end) != from) return false;
  }
  return true;
}

// Keeps the entries of each line together in the visual order, its separator last, where a cut has made new lines.
void OrderByLines(TDirectionalRuns& runs) {
  std::vector<std::int32_t> keys;
  keys.reserve(runs.Bidi.size());
  std::int32_t line = 0;
  for (const TBidi bidi : runs.Bidi) {
    const bool separator = bidi == TBidi::ParagraphSeparator;
    keys.push_back(2 * line + (separator ? 1 : 0));
    if (separator) ++line;
  }
  const auto before = [&](std::int32_t a, std::int32_t b) {
    return keys[static_cast<std::size_t>(a)] < keys[static_cast<std::size_t>(b)];
  };
  if (!std::is_sorted(runs.VisualOrder.begin(), runs.VisualOrder.end(), before))
    std::stable_sort(runs.VisualOrder.begin(), runs.VisualOrder.end(), before);
}

// The direction of a letter; ParagraphSeparator for any other unit.
TBidi LetterDirection(char16_t c) {
  const TUnitClass kind = ClassOf(c);
  if (kind.Has(TUnitClass::WordRTL)) return TBidi::RightToLeft;
  return kind.Has(TUnitClass::LetterLTR) ? TBidi::LeftToRight : TBidi::ParagraphSeparator;
}

constexpr TCategories Marks{TCategory::Mc, TCategory::Me, TCategory::Mn};

bool HoldsForeignLetter(const TText& text, std::int32_t from, std::int32_t end, TBidi own) {
  const auto foreign = own == TBidi::RightToLeft ? TUnitClass::LetterLTR : TUnitClass::WordRTL;
  while (from < end) {
    from = own == TBidi::RightToLeft ? SkipUnits<TNoLTRLetter>(text.Data(), from, end)
                                     : SkipUnits<TNoRTLLetter>(text.Data(), from, end);
    for (const std::int32_t soon = std::min(from + TUnits::Count, end); from < soon; ++from)
      if (ClassOf(text[from]).Has(foreign)) return true;
  }
  return false;
}

void CutRun(const TText& text, std::int32_t from, std::int32_t end, TBidi own, TBidi paragraph, TRecutter& recutter) {
  TBidi direction = own;
  bool metLetter = false;
  std::int32_t letterEnd = from;  // behind the last letter and its marks
  for (std::int32_t place = from; place < end; ++place) {
    const TBidi letter = LetterDirection(text[place]);
    if (letter == TBidi::ParagraphSeparator) {
      if (place == letterEnd && metLetter && ClassOf(text[place]).In(Marks)) ++letterEnd;
      continue;
    }
    if (letter != direction) {
      const std::int32_t cut = !metLetter || direction == paragraph ? place : letterEnd;
      if (cut > from) recutter.Add(cut, direction);
      direction = letter;
    }
    metLetter = true;
    letterEnd = place + 1;
  }
  recutter.Add(end, direction);
}

}  // namespace

void SeparateLineEnds(std::u16string_view s, TBidi paragraph, bool swallowed, TRecutStorage& storage,
                      TDirectionalRuns& runs) {
  const TText text(s);
  if (!swallowed && SeparatorsAreLineEnds(text, runs)) return;
  TRecutter recutter(storage);
  for (std::size_t run = 0; run < runs.Bidi.size(); ++run) {
    recutter.BeginRun();
    const std::int32_t end = runs.Offsets[run + 1];
    const bool separator = runs.Bidi[run] == TBidi::ParagraphSeparator;
    const bool empty = runs.Offsets[run] == end;
    if (empty && !separator) recutter.Add(end, runs.Bidi[run]);

    std::int32_t from = runs.Offsets[run];
    const auto addText = [&](std::int32_t to) {
      if (to == from) return;
      if (!separator)
        recutter.Add(to, runs.Bidi[run]);
      else if (recutter.LineIsEmpty())
        recutter.Add(to, paragraph);
      else
        recutter.ExtendLast(to);
    };
    for (std::int32_t place = from; place < end;) {
      const std::int32_t lineEnd = LineEndBehind(text, place);
      if (lineEnd > place) {
        addText(place);
        recutter.Add(lineEnd, TBidi::ParagraphSeparator);
        from = lineEnd;
      }
      place = std::max(lineEnd, place + 1);
    }
    addText(end);
  }
  recutter.PutInto(runs);
  OrderByLines(runs);
}

bool HoldsForeignLetter(std::u16string_view s, const TDirectionalRuns& runs) {
  const TText text(s);
  for (std::size_t run = 0; run < runs.Bidi.size(); ++run)
    if (runs.Bidi[run] != TBidi::ParagraphSeparator &&
        HoldsForeignLetter(text, runs.Offsets[run], runs.Offsets[run + 1], runs.Bidi[run]))
      return true;
  return false;
}

void CutToOwnDirection(std::u16string_view s, TBidi paragraph, TRecutStorage& storage, TDirectionalRuns& runs) {
  const TText text(s);
  if (!HoldsForeignLetter(s, runs)) return;
  TRecutter recutter(storage);
  for (std::size_t run = 0; run < runs.Bidi.size(); ++run) {
    recutter.BeginRun();
    if (runs.Bidi[run] == TBidi::ParagraphSeparator)
      recutter.Add(runs.Offsets[run + 1], TBidi::ParagraphSeparator);
    else
      CutRun(text, runs.Offsets[run], runs.Offsets[run + 1], runs.Bidi[run], paragraph, recutter);
  }
  recutter.PutInto(runs);
}

}  // namespace orv::engine
