#include "tools/orv/show/Layout.h"

#include <algorithm>
#include <cmath>

#include "tools/orv/show/Marks.h"

namespace orv::show {
namespace {

bool IsBlank(UCS4Char c) {
  return c == U' ' || c == U'\t';
}

// A place in a paragraph, in reading order.
struct TSpot {
  std::size_t Run = 0;
  std::size_t Atom = 0;
  friend bool operator<(TSpot a, TSpot b) { return a.Run != b.Run ? a.Run < b.Run : a.Atom < b.Atom; }
  friend bool operator>(TSpot a, TSpot b) { return b < a; }
};

class TFiller {
 public:
  TFiller(const TParagraph& paragraph, const TFace& face, float room)
      : FParagraph(paragraph),
        FFace(face),
        FRoom(room),
        FEnd{paragraph.Runs.size(), 0},
        FPlaces(paragraph.Runs.size()) {
    for (std::size_t place = 0; place < FPlaces.size(); ++place)
      FPlaces[static_cast<std::size_t>(paragraph.LeftToRight[place])] = place;
  }

  // Nothing is left out but the blanks at which a line was broken.
  std::vector<TLine> Lines() {
    std::vector<TLine> lines;
    for (TSpot start = Skip({}); start < FEnd;) {
      const TSpot end = LineEnd(start);
      lines.push_back(Line(start, TrimEnd(start, end)));
      start = end < FEnd ? SkipBlanks(end) : end;
    }
    if (lines.empty()) lines.emplace_back();
    return lines;
  }

 private:
  UCS4Char At(TSpot spot) const { return FParagraph.Runs[spot.Run].Atoms[spot.Atom]; }

  // The spot itself, or the next run's start where it stands at the end of its own.
  TSpot Skip(TSpot spot) const {
    while (spot.Run < FParagraph.Runs.size() && spot.Atom >= FParagraph.Runs[spot.Run].Atoms.size())
      spot = {spot.Run + 1, 0};
    return spot;
  }
  TSpot Next(TSpot spot) const { return Skip({spot.Run, spot.Atom + 1}); }

  // A blank that carries a mark is a letter: marks are shown alone that way.
  bool IsBreak(TSpot spot) const {
    const TUCS4List& atoms = FParagraph.Runs[spot.Run].Atoms;
    return IsBlank(At(spot)) && (spot.Atom + 1 == atoms.size() || !IsMark(atoms[spot.Atom + 1]));
  }

  TSpot SkipBlanks(TSpot spot) const {
    while (spot < FEnd && IsBreak(spot)) spot = Next(spot);
    return spot;
  }

  // A mark belongs to the letter before it; at the start of a run it has none, and takes room as one.
  bool IsOnLetter(TSpot spot) const { return spot.Atom > 0 && IsMark(At(spot)); }

  float Advance(TSpot spot) const { return IsOnLetter(spot) ? 0.0F : FFace.Glyphs->Glyph(At(spot)).Advance; }

  // The spot behind the last atom that fits, moved back to the last blank; a word that fills the line alone is cut.
  TSpot LineEnd(TSpot start) const {
    float width = 0;
    TSpot blank = start;
    for (TSpot spot = start; spot < FEnd; spot = Next(spot)) {
      if (IsBreak(spot)) {
        blank = spot;
        width += Advance(spot);
        continue;
      }
      width += Advance(spot);
      if (width > FRoom && spot > start && !IsOnLetter(spot)) return blank > start ? blank : spot;
    }
    return FEnd;
  }

  TSpot TrimEnd(TSpot start, TSpot end) const {
    TSpot trimmed = start;
    for (TSpot spot = start; spot < end; spot = Next(spot))
      if (!IsBreak(spot)) trimmed = {spot.Run, spot.Atom + 1};
    return trimmed;
  }

  TPiece Piece(std::size_t run, std::size_t first, std::size_t last) const {
    TPiece piece{&FParagraph.Runs[run], first, last, 0};
    for (std::size_t atom = first; atom < last; ++atom) piece.Width += Advance({run, atom});
    return piece;
  }

  // The runs that the line touches, in the order in which the whole paragraph has them from left to right.
  std::vector<std::size_t> RunsBetween(TSpot start, TSpot end) const {
    std::vector<std::size_t> runs;
    for (std::size_t run = start.Run; run <= end.Run && run < FPlaces.size(); ++run) runs.push_back(run);
    std::sort(runs.begin(), runs.end(), [&](std::size_t a, std::size_t b) { return FPlaces[a] < FPlaces[b]; });
    return runs;
  }

  TLine Line(TSpot start, TSpot end) const {
    TLine line;
    float width = 0;
    for (const std::size_t run : RunsBetween(start, end)) {
      const std::size_t first = run == start.Run ? start.Atom : 0;
      const std::size_t last = run == end.Run ? end.Atom : FParagraph.Runs[run].Atoms.size();
      if (first >= last) continue;
      line.Pieces.push_back(Piece(run, first, last));
      width += line.Pieces.back().Width;
    }
    line.Left = FParagraph.RightToLeft ? FRoom - width : 0;
    line.Title = FParagraph.Title;
    return line;
  }

  const TParagraph& FParagraph;
  const TFace& FFace;
  float FRoom;
  TSpot FEnd;
  std::vector<std::size_t> FPlaces;  // of each run, from left to right
};

// The margin grows with the page, but a page of one column of letters has none.
int Margin(int width, double pixelSize) {
  return std::min(static_cast<int>(std::lround(pixelSize * 2.2)), width / 8);
}

class TPageBuilder {
 public:
  TPageBuilder(const TFaces& faces, int width) : FFaces(faces), FMargin(Margin(width, faces.Text.PixelSize)) {
    FPage.Width = width;
    FPage.Height = FMargin;
  }

  void Add(const TParagraph& paragraph) {
    const TFace& face = paragraph.Title ? FFaces.Title : FFaces.Text;
    if (paragraph.Runs.empty()) {
      FPage.Height += LineHeight(face.PixelSize) / 2;
      return;
    }
    const auto room = static_cast<float>(FPage.Width - 2 * FMargin);
    for (TLine& line : TFiller(paragraph, face, room).Lines()) {
      const int height = LineHeight(face.PixelSize);
      line.Left += static_cast<float>(FMargin);
      line.BaseLine = FPage.Height + height * 2 / 3;
      FPage.Height += height;
      FPage.Lines.push_back(std::move(line));
    }
  }

  void AddRule() {
    const int gap = LineHeight(FFaces.Text.PixelSize);
    FPage.Rules.push_back(FPage.Height + gap);
    FPage.Height += 2 * gap;
  }

  TPage Finish() {
    FPage.Height += FMargin;
    return std::move(FPage);
  }

 private:
  const TFaces& FFaces;
  int FMargin;
  TPage FPage;
};

}  // namespace

int LineHeight(double pixelSize) {
  return std::max(1, static_cast<int>(std::lround(pixelSize * 1.8)));
}

TPage LayOut(std::span<const std::vector<TParagraph>> texts, const TFaces& faces, int width) {
  TPageBuilder builder(faces, width);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (i > 0) builder.AddRule();
    for (const TParagraph& paragraph : texts[i]) builder.Add(paragraph);
  }
  return builder.Finish();
}

}  // namespace orv::show
