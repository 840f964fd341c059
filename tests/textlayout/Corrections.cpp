// Each correction by itself: what the plain rules make of a text, and what it makes of it.
#include <initializer_list>
#include <utility>

#include "tests/textlayout/support/Layouts.h"

namespace orv {
namespace {

using namespace testing;
using fmx::TTextAlign;
using fmx::TTextTrimming;
using enum TOrvCorrection;

class Corrections : public TFixedTest {};

// What is shown by the rules, and with the correction alone.
template <typename TShow>
auto Both(TOrvCorrection correction, TShow show) {
  auto byTheRules = show();
  TOrvGlobalSettings::Corrections = {correction};
  auto corrected = show();
  TOrvGlobalSettings::Corrections = {};
  return std::pair(std::move(byTheRules), std::move(corrected));
}

TSetUp Aligned(TTextAlign align) {
  return [align](TTextLayoutNGOrv& layout) { layout.SetHorizontalAlign(align); };
}

// A colour of their own for units of the text, which makes a run of them.
TSetUp Coloured(std::initializer_list<fmx::TTextRange> ranges, TSetUp more = {}, bool isSelection = false) {
  return [=, list = std::vector(ranges)](TTextLayoutNGOrv& layout) {
    for (const fmx::TTextRange range : list)
      layout.AddAttribute(
          std::make_unique<TTextAttributedRangeBidi>(range, fmx::TTextAttribute{nullptr, 0xFFFF0000}, isSelection));
    if (more) more(layout);
  };
}

// The coloured runs, "2+3", in item order.
TTexts ColouredRuns(const TTextLayoutNGOrv& layout) {
  TTexts runs;
  for (std::int32_t i = 0; i < layout.Frame().Count(); ++i)
    for (std::int32_t k = 0; k < layout.Frame().Line(i).Count(); ++k) {
      const TGPURun& run = layout.Frame().Line(i).Item(k);
      if (!run.IsDefaultColor()) runs.push_back(std::to_string(run.StartIndex()) + "+" + std::to_string(run.Length()));
    }
  return runs;
}

// --- Units of atoms ---

TEST_F(Corrections, SourceUnitsOfAnAtomAreThoseBeforeIt) {
  const auto positions = [] {
    TFrameStore store(TOrvGlobalSettings::Corrections);
    const auto run = RunOf(Salam, true, store);
    return TList{run->UCS4IndexToUTF16Index(1), run->UCS4IndexToUTF16Index(2), run->UTF16IndexToUCS4Index(1),
                 run->UTF16IndexToUCS4Index(2), run->UTF16IndexToUCS4Index(3)};
  };
  const auto [plain, corrected] = Both(SourceUnits, positions);
  EXPECT_EQ(plain, (TList{2, 3, 0, 1, 2}));
  EXPECT_EQ(corrected, (TList{1, 3, 1, 1, 2}));
}

TEST_F(Corrections, SourceUnitsKeepClicksOutOfPairs) {
  const auto [plain, corrected] = Both(SourceUnits, [] { return Hit(*Laid(u"a\U0001F600b", 200), 19); });
  EXPECT_EQ(plain, 2);
  EXPECT_EQ(corrected, 3);
}

TEST_F(Corrections, SourceUnitsColourWholeLigatures) {
  const auto [plain, corrected] = Both(SourceUnits, [] { return ColouredRuns(*Laid(Salam, 200, Coloured({{2, 1}}))); });
  EXPECT_EQ(plain, TTexts{"2+1"});
  EXPECT_EQ(corrected, TTexts{"1+2"});
}

TEST_F(Corrections, DeleteUnitsTakesAllUnitsOfALigature) {
  const auto left = [] {
    TFrameStore store(TOrvGlobalSettings::Corrections);
    const auto atEnd = RunOf(Salam, true, store);
    atEnd->DeleteTextFromEnd(2);
    const auto atStart = RunOf(LamAlef + u"\u062F", true, store);
    atStart->DeleteTextFromStart(1);
    return TTexts{Shown(*atEnd), Shown(*atStart)};
  };
  const auto [plain, corrected] = Both(DeleteUnits, left);
  EXPECT_EQ(plain, (TTexts{"0+2 R 0-0", "1+2 R 0-0"}));
  EXPECT_EQ(corrected, (TTexts{"0+1 R 0-0", "2+1 R 0-0"}));
}

// --- Hits and boxes ---

TEST_F(Corrections, LigatureHitReachesTheFarEnd) {
  const auto hits = [] {
    const auto layout = Laid(LamAlef, 200);
    return TList{Hit(*layout, 9), Hit(*layout, 5), Hit(*layout, 3)};
  };
  const auto [plain, corrected] = Both(LigatureHit, hits);
  EXPECT_EQ(plain, (TList{0, 1, 0}));
  EXPECT_EQ(corrected, (TList{0, 1, 2}));
}

TEST_F(Corrections, HitPlaceLooksWhereTheLinesAre) {
  const auto hits = [] {
    const auto centred = Laid(u"ab\ncd", 200, [](auto& l) { l.SetVerticalAlign(TTextAlign::Center); });  // 30 to 70
    const auto padded = Laid(u"ab", 200, [](auto& l) { l.SetPadding({20, 0, 0, 0}); });
    return TList{Hit(*centred, 1, 10), Hit(*centred, 1, 35), Hit(*centred, 1, 60), Hit(*centred, 1, 75),
                 Hit(*padded, 15)};
  };
  const auto [plain, corrected] = Both(HitPlace, hits);
  EXPECT_EQ(plain, (TList{0, 3, -1, -1, 0}));
  EXPECT_EQ(corrected, (TList{-1, 0, 3, -1, 1}));
}

TEST_F(Corrections, EndRegionBehindABlankThatWrappingTook) {
  const auto boxes = [] {
    const fmx::TRegion region = Laid(u"abc ", 30, Wrapped)->RegionForRange({4, 0});
    return region;
  };
  const auto [plain, corrected] = Both(EndRegion, boxes);
  EXPECT_EQ(plain, fmx::TRegion{});
  EXPECT_EQ(corrected, (fmx::TRegion{{0, 20, 0, 40}}));
}

TEST_F(Corrections, EndRegionOfATrimmedText) {
  const auto [plain, corrected] = Both(EndRegion, [] {
    return Extents(Laid(u"abcdefgh", 55, [](auto& l) {
                     l.SetTrimming(TTextTrimming::Character);
                     l.SetMeasuringText(true);
                   })->RegionForRange({8, 0}));
  });
  EXPECT_EQ(plain, "");
  EXPECT_EQ(corrected, "40-40");
}

// --- Clipping ---

TEST_F(Corrections, RightClipTakesWholeAtomsFromTheFarSide) {
  const auto lines = [] {
    return TTexts{Lines(*Laid(u"abcdefghij", 55))[0], Lines(*Laid(Donya + Donya + Donya, 55))[0]};
  };
  const auto [plain, corrected] = Both(RightClip, lines);
  EXPECT_EQ(plain, (TTexts{"0,0 w60: 0+9 L 0-60 clipped", "0,0 w60: 1+11 R 0-60 clipped"}));
  EXPECT_EQ(corrected, (TTexts{"0,0 w60: 0+6 L 0-60 clipped", "0,0 w60: 6+6 R 0-60 clipped"}));
}

TEST_F(Corrections, KeepOneRunLeavesALine) {
  const auto lines = [] {
    return Lines(*Laid(u"a", 200, [](auto& l) {
      l.SetMaxSize({200, 15});
      l.SetPadding({0, 50, 0, 0});
    }));
  };
  const auto [plain, corrected] = Both(KeepOneRun, lines);
  EXPECT_EQ(plain, TTexts{});
  EXPECT_EQ(corrected, TTexts{"0,50 w10: 0+1 L 0-10"});
}

TEST_F(Corrections, KeepOneRunLeavesARunOfALine) {
  const auto lines = [] {
    return Lines(*Laid(u"a", 5, [](auto& l) {
      l.SetHorizontalAlign(TTextAlign::Trailing);
      l.SetPadding({0, 0, 50, 0});
    }));
  };
  const auto [plain, corrected] = Both(KeepOneRun, lines);
  EXPECT_EQ(plain, TTexts{"-45,0 w0:"});
  EXPECT_EQ(corrected, TTexts{"-55,0 w10: 0+1 L 0-10"});
}

// --- The visual order ---

// A line of three runs in that visual order.
TStored<TGPULine> LineOf(TFrameStore& store, const TList& order) {
  auto line = store.New<TGPULine>(store);
  line->SetVisualOrderList(order);
  for (std::int32_t i = 0; i < 3; ++i) line->Add(RunOf(u"a", false, store));
  return line;
}

TEST_F(Corrections, VisualOrdersOfWhatIsLeftWhenARunGoes) {
  const auto order = [] {
    TFrameStore store(TOrvGlobalSettings::Corrections);
    const auto line = LineOf(store, {1, 2, 0});
    line->Delete(0);
    return OrderOf(*line);
  };
  const auto [plain, corrected] = Both(VisualOrders, order);
  EXPECT_EQ(plain, (TList{1, 0}));
  EXPECT_EQ(corrected, (TList{0, 1}));  // the runs that were 1 and 2 stay in their order
}

TEST_F(Corrections, VisualOrdersOfABrokenLine) {
  const auto order = [] {
    TFrameStore store(TOrvGlobalSettings::Corrections);
    const auto line = LineOf(store, {1, 2, 0});
    const auto rest = line->SplitBeforeRun(line->Item(1));
    return OrderOf(*rest);
  };
  const auto [plain, corrected] = Both(VisualOrders, order);
  EXPECT_EQ(plain, (TList{1, 0}));
  EXPECT_EQ(corrected, (TList{0, 1}));
}

TEST_F(Corrections, SelectionOrderColoursWhatIsHeld) {
  // Seen as Donya, abc, Salam; the range holds Salam, its blank, and "a".
  const auto runs = [] { return ColouredRuns(*Laid(Salam + u" abc " + Donya, 200, Coloured({{0, 6}}, {}, true))); };
  const auto [plain, corrected] = Both(SelectionOrder, runs);
  EXPECT_EQ(plain, (TTexts{"0+1", "1+4"}));
  EXPECT_EQ(corrected, (TTexts{"0+5", "5+1"}));
}

// --- Runs of a line ---

TEST_F(Corrections, EmptyRunBesideOthersHasNoWidth) {
  // The blank of the first run stays as its empty rest.
  const auto shown = [] {
    const auto layout = Laid(u"abc de", 30, Coloured({{0, 4}}, Wrapped));
    return TTexts{Lines(*layout)[1], std::to_string(Hit(*layout, 15, 25))};
  };
  const auto [plain, corrected] = Both(EmptyRun, shown);
  EXPECT_EQ(plain, (TTexts{"0,20 w21: 4+0 L 0-1 | 4+2 L 1-21", "4"}));
  EXPECT_EQ(corrected, (TTexts{"0,20 w20: 4+0 L 0-0 | 4+2 L 0-20", "5"}));
}

TEST_F(Corrections, FirstGlyphOfALaterRunWraps) {
  const auto [plain, corrected] = Both(FirstGlyph, [] {
    return Lines(*Laid(u"abc", 25, Coloured({{2, 1}}, Wrapped)));
  });
  EXPECT_EQ(plain, TTexts{"0,0 w30: 0+2 L 0-20 | 2+1 L 20-30 clipped"});
  EXPECT_EQ(corrected, (TTexts{"0,0 w20: 0+2 L 0-20", "0,20 w10: 2+1 L 0-10"}));
}

TSetUp Trimmed(TTextTrimming trimming) {
  return [trimming](TTextLayoutNGOrv& layout) { layout.SetTrimming(trimming); };
}

TEST_F(Corrections, TrimLineLeavesRoomForTheEllipsisAlone) {
  const auto [plain, corrected] =
      Both(TrimLine, [] { return Lines(*Laid(u"abcdefgh", 55, Trimmed(TTextTrimming::Character))); });
  EXPECT_EQ(plain, TTexts{"0,0 w40: 0+3 L 0-40 trimmed"});
  EXPECT_EQ(corrected, TTexts{"0,0 w50: 0+4 L 0-40 trimmed"});
}

TEST_F(Corrections, TrimLineHasOneEllipsis) {
  const auto trimmedRuns = [] {
    const auto layout = Laid(u"abcdefghi", 35, Coloured({{3, 3}}, Trimmed(TTextTrimming::Character)));
    int count = 0;
    for (std::int32_t i = 0; i < layout->Frame().Line(0).Count(); ++i)
      count += layout->Frame().Line(0).Item(i).Trimmed();
    return count;
  };
  const auto [plain, corrected] = Both(TrimLine, trimmedRuns);
  EXPECT_EQ(plain, 2);
  EXPECT_EQ(corrected, 1);
}

TEST_F(Corrections, TrimLineCutsTheReadingEnd) {
  const auto lines = [] { return Lines(*Laid(Donya + u" " + Donya, 65, Trimmed(TTextTrimming::Word))); };
  const auto [plain, corrected] = Both(TrimLine, lines);
  EXPECT_EQ(plain, TTexts{"0,0 w65: 0+6 R 0-65 trimmed"});
  EXPECT_EQ(corrected, TTexts{"0,0 w50: 0+4 R 10-50 trimmed"});  // the ellipsis is on the left
}

// --- Tabs ---

TEST_F(Corrections, TabSplitPutsTheRestBehindTheTab) {
  const auto [plain, corrected] = Both(TabSplit, [] { return Lines(*Laid(u"\t" + Salam, 200, Wrapped)); });
  EXPECT_EQ(plain, TTexts{"0,0 w70: 0+1 R 0-40 | 1+4 R 40-70"});
  EXPECT_EQ(corrected, TTexts{"0,0 w70: 0+1 R 30-70 | 1+4 R 0-30"});
}

TEST_F(Corrections, TabTagsMoveWithTheirAtoms) {
  const auto tagTypes = [] {
    const auto layout = Laid(u"abc\tdef", 45, Aligned(TTextAlign::Trailing));  // "ab" goes
    const TGPURun& run = layout->Frame().Line(0).Item(0);
    TList types;
    for (std::int32_t i = 0; i < run.UCS4Length(); ++i)
      types.push_back(static_cast<std::int32_t>(run.DrawTag(i).TagType));
    return types;
  };
  const auto [plain, corrected] = Both(TabTags, tagTypes);
  EXPECT_EQ(plain, (TList{0, 0, 0, 1, 0}));
  EXPECT_EQ(corrected, (TList{0, 1, 0, 0, 0}));
}

TEST_F(Corrections, TabMeasureMovesNothing) {
  const auto shown = [] {
    const auto layout = Laid(u"ab\tc", 200);
    const std::string box = Extents(layout->RegionForRange({3, 1}));
    return TTexts{box, Shown(layout->GetTabAdvance(layout->Frame().Line(0).Item(0), 2))};
  };
  const auto [plain, corrected] = Both(TabMeasure, shown);
  EXPECT_EQ(plain, (TTexts{"50-60", "30"}));
  EXPECT_EQ(corrected, (TTexts{"40-50", "20"}));
}

TEST_F(Corrections, TabHeightIsThatOfABlank) {
  const auto [plain, corrected] = Both(TabHeight, [] { return Laid(u"\t", 200)->TextHeight(); });
  EXPECT_EQ(plain, 0);
  EXPECT_EQ(corrected, 20);
}

}  // namespace
}  // namespace orv
