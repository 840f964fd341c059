// What a reader and a writer may rely on, with every correction in force, over random texts of all kinds: what is drawn
// can be clicked, what is clicked lies where it is drawn, and asking changes nothing.
//
// Each round is a text, a box and attributes of its own. ORV_LAYOUT_ROUNDS asks for another number of rounds.
#include <cmath>
#include <cstdlib>
#include <string>

#include "fmx/RecordingCanvas.h"
#include "rtl/Unicode.h"
#include "tests/textlayout/support/Layouts.h"

namespace orv {
namespace {

using namespace testing;

constexpr float Near = 0.02F;

#ifdef ORV_ASSERTIONS
constexpr int UsualRounds = 5000;
#else
constexpr int UsualRounds = 100000;
#endif

int Rounds() {
  const char* wanted = std::getenv("ORV_LAYOUT_ROUNDS");
  return wanted != nullptr ? std::atoi(wanted) : UsualRounds;
}

class CorrectedLaws : public TFixedTest {
 protected:
  CorrectedLaws() { TOrvGlobalSettings::Corrections = AllCorrections; }

  std::int32_t Random(std::int32_t below) { return FChance.Below(below); }

  // Without the presentation forms that count otherwise than the letters they stand for.
  std::u16string RandomText(std::int32_t longest) {
    static const std::u16string all[] = {u"abc",
                                         u"x",
                                         u"\u0633\u0644\u0627\u0645",
                                         u"\u0628\u064E\u062A",
                                         u"\u0628\u0651\u064E",
                                         u" ",
                                         u"  ",
                                         u"12.5",
                                         u"(a)",
                                         u"\n",
                                         u"\r\n",
                                         u"\u0644\u0627",
                                         u"\U0001F600",
                                         u"-",
                                         u"\u06F1\u06F2",
                                         u"%",
                                         u"!",
                                         u"\u200C",
                                         u"\t",
                                         u"\u05E9\u05DC\u05D5\u05DD",
                                         u"\u05D0\u05B7\u05D1"};
    return FChance.Text(all, longest);
  }

  std::unique_ptr<TTextLayoutNGOrv> RandomLayout(const std::u16string& text) {
    const auto length = static_cast<std::int32_t>(text.size()) + 1;
    return Laid(text, 0, [&](auto& l) {
      l.SetMaxSize({static_cast<float>(20 + Random(200)), static_cast<float>(20 + Random(200))});
      l.SetWordWrap(Random(2) == 0);
      l.SetTrimming(static_cast<fmx::TTextTrimming>(Random(3)));
      l.SetHorizontalAlign(static_cast<fmx::TTextAlign>(Random(3)));
      l.SetVerticalAlign(static_cast<fmx::TTextAlign>(Random(3)));
      l.SetRightToLeft(Random(4) == 0);
      l.SetScale(1 + static_cast<float>(Random(3)) / 2);
      l.SetTopLeft({static_cast<float>(Random(3)), static_cast<float>(Random(3))});
      for (std::int32_t i = Random(3); i > 0; --i)
        l.AddAttribute(std::make_unique<TTextAttributedRangeBidi>(
            fmx::TTextRange{Random(length), Random(length)},
            fmx::TTextAttribute{nullptr, 0xFF000000U + static_cast<fmx::TAlphaColor>(i)}, Random(3) == 0));
    });
  }

 private:
  TChance FChance{20260801};
};

// A drawn letter: its run, the units it stands for, and its box, with the layout's corner.
struct TLetter {
  const TGPURun* Run;
  std::int32_t First;
  std::int32_t Units;
  UCS4Char Atom;
  fmx::TRectF Box;
};

std::vector<TLetter> LettersOf(const TTextLayoutNGOrv& layout) {
  std::vector<TLetter> letters;
  for (std::int32_t i = 0; i < layout.Frame().Count(); ++i) {
    const TGPULine& line = layout.Frame().Line(i);
    for (std::int32_t r = 0; r < line.Count(); ++r) {
      const TGPURun& run = line.Item(r);
      const float way = run.RightToLeft() ? -1.0F : 1.0F;
      float pen = run.RightToLeft() ? run.ImageRect().Right : run.ImageRect().Left;
      std::int32_t unit = run.StartIndex();
      for (std::int32_t k = 0; k < run.UCS4Length(); ++k) {
        const UCS4Char atom = run.Atom(k);
        const float advance = atom == U'\t' ? layout.GetTabAdvance(run, k) : layout.LayoutGlyph(atom).Glyph.Advance;
        const float next = pen + way * advance * layout.ScaleFactor();
        const fmx::TRectF box{std::min(pen, next), 0, std::max(pen, next), line.Height()};
        letters.push_back({&run, unit, AtomUnits(atom), atom, box.Offset(line.TopLeft()).Offset(layout.TopLeft())});
        pen = next;
        unit += AtomUnits(atom);
      }
    }
  }
  return letters;
}

// Marks behind the letter go with it.
std::int32_t BehindMarks(std::u16string_view text, std::int32_t position) {
  while (rtl::IsMark(rtl::UnitAt(text, position))) ++position;
  return position;
}

std::string Told(const TTextLayoutNGOrv& layout) {
  std::string text = "\"";
  char unit[8];
  for (const char16_t c : layout.Text()) {
    std::snprintf(unit, sizeof unit, "\\u%04X", static_cast<unsigned>(c));
    text += unit;
  }
  return text + "\" in " + Shown(layout.MaxSize().X) + " by " + Shown(layout.MaxSize().Y) +
         (layout.WordWrap() ? " wrapped" : "") + " trimming " + std::to_string(static_cast<int>(layout.Trimming())) +
         " align " + std::to_string(static_cast<int>(layout.HorizontalAlign())) + " scale " + Shown(layout.Scale());
}

// A click on the middle of a letter answers one of its ends, or a place within a ligature.
void ExpectClicks(TTextLayoutNGOrv& layout, const TLetter& letter) {
  if (letter.Box.Width() < 1) return;  // a mark lies over its letter
  const std::int32_t position =
      layout.PositionAtPoint({(letter.Box.Left + letter.Box.Right) / 2, (letter.Box.Top + letter.Box.Bottom) / 2});
  ASSERT_GE(position, letter.First);
  ASSERT_LE(position, BehindMarks(layout.Text(), letter.First + letter.Units));
}

// The region of its units is its box, with those of its marks.
void ExpectRegion(TTextLayoutNGOrv& layout, const TLetter& letter) {
  if (layout.MaxSize().X <= layout.TextWidth()) return;  // a clipped text is measured whole
  const fmx::TRegion region = layout.RegionForRange({letter.First, letter.Units});
  ASSERT_FALSE(region.empty());
  ASSERT_NEAR(region[0].Top, letter.Box.Top, Near);
  ASSERT_LE(region[0].Left, letter.Box.Left + Near);
  ASSERT_GE(region[0].Right, letter.Box.Right - Near);
}

void ExpectLines(const TTextLayoutNGOrv& layout) {
  for (std::int32_t i = 0; i < layout.Frame().Count(); ++i) {
    const TGPULine& line = layout.Frame().Line(i);
    ASSERT_FALSE(line.IsEmpty());
    ASSERT_GE(line.Width(), 0);
    ASSERT_GT(line.Height(), 0);
    int ellipses = 0;
    for (std::int32_t k = 0; k < line.Count(); ++k) {
      ASSERT_GE(line.Item(k).GetWidth(), 0);
      ASSERT_GE(line.Item(k).Length(), 0);
      ellipses += line.Item(k).Trimmed() ? 1 : 0;
      if (k == 0) continue;
      ASSERT_NEAR(line.GetItemByVisualOrder(k).ImageRect().Left, line.GetItemByVisualOrder(k - 1).ImageRect().Right,
                  Near);
    }
    ASSERT_LE(ellipses, 1);
  }
}

// The colour of the last attribute over each letter, or the layout's own.
void ExpectColours(const TTextLayoutNGOrv& layout, const TLetter& letter) {
  fmx::TAlphaColor expected = layout.Color();
  for (std::size_t i = 0; i < layout.AttributesCount(); ++i) {
    const auto [pos, length] = layout.Attribute(i).Range();
    const bool touches = length > 0 && pos < letter.First + letter.Units && pos + length > letter.First;
    if (touches) expected = layout.Attribute(i).Attribute().Color;
  }
  ASSERT_EQ(letter.Run->Color(), expected);
}

std::vector<std::string> Drawn(TTextLayoutNGOrv& layout) {
  fmx::TRecordingCanvas canvas(400, 400, layout.Scale());
  canvas.BeginScene();
  layout.RenderLayout(canvas);
  canvas.EndScene();
  std::vector<std::string> calls;
  for (const fmx::TRecordedCall& call : canvas.Calls())
    calls.push_back(Shown(call.Rect.Left) + "," + Shown(call.Rect.Top) + "," + Shown(call.Rect.Right) + "," +
                    Shown(call.Source.Left) + "," + Shown(call.Source.Top) + " " + std::to_string(call.Color));
  return calls;
}

TEST_F(CorrectedLaws, WhatIsDrawnIsFoundAndWhatIsFoundIsDrawn) {
  for (int round = 0; round < Rounds(); ++round) {
    const std::u16string text = RandomText(16);
    const auto layout = RandomLayout(text);
    SCOPED_TRACE("round " + std::to_string(round) + ": " + Told(*layout));
    ASSERT_NO_FATAL_FAILURE(ExpectLines(*layout));
    const auto before = Drawn(*layout);
    for (const TLetter& letter : LettersOf(*layout)) {
      SCOPED_TRACE("unit " + std::to_string(letter.First));
      ASSERT_NO_FATAL_FAILURE(ExpectClicks(*layout, letter));
      ASSERT_NO_FATAL_FAILURE(ExpectRegion(*layout, letter));
      ASSERT_NO_FATAL_FAILURE(ExpectColours(*layout, letter));
    }
    const auto end = layout->RegionForRange({static_cast<std::int32_t>(text.size()), 0});
    ASSERT_EQ(end.size(), 1U) << "the end of the text has a place for the caret";
    ASSERT_TRUE(end[0].IsFinite());
    ASSERT_EQ(Drawn(*layout), before) << "drawing is the same behind queries";
  }
}

}  // namespace
}  // namespace orv
