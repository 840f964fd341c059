// Runs and lines: positions, splitting, and the visual order.
#include "textlayout/Orv.TextLayout.GPU.Line.h"

#include "tests/textlayout/support/Layouts.h"

namespace orv {
namespace {

using namespace testing;

class Runs : public TFixedTest {};
class LineOrder : public TFixedTest {};

TEST_F(Runs, LamAlefIsOneAtomOfTwoUnits) {
  const auto run = RunOf(LamAlef);
  ASSERT_EQ(run->UCS4Length(), 1);
  EXPECT_EQ(run->Length(), 2);
  EXPECT_EQ(run->UCS4IndexToUTF16Index(0), 1);
  EXPECT_EQ(run->UCS4IndexToUTF16Index(1), 2);
  EXPECT_EQ(run->UTF16IndexToUCS4Index(0), -1);
  EXPECT_EQ(run->UTF16IndexToUCS4Index(1), 0);
}

TEST_F(Runs, PositionsOfAFoldedWord) {
  const auto run = RunOf(Salam);
  TList units, atoms;
  for (std::int32_t i = 0; i <= 3; ++i) units.push_back(run->UCS4IndexToUTF16Index(i));
  for (std::int32_t i = 0; i <= 4; ++i) atoms.push_back(run->UTF16IndexToUCS4Index(i));
  EXPECT_EQ(units, (TList{0, 2, 3, 4}));
  EXPECT_EQ(atoms, (TList{0, 0, 1, 2, 3}));
}

TEST_F(Runs, ConversionEndsWhereAtomsStandForLessThanTheLength) {
  TGPURun run(PlainStore());
  run.SetText(u"\uFDF2ab", 0, 3, false);
  run.SetLength(9);  // more than the atoms account for
  EXPECT_EQ(run.UCS4IndexToUTF16Index(100), 102);
  EXPECT_EQ(run.UTF16IndexToUCS4Index(100), 98);
}

TEST_F(Runs, UnitsOfAtoms) {
  for (UCS4Char c = 0; c <= 0x10FFFF; ++c) {
    const int expected = (c >= 0xFEF5 && c <= 0xFEFC) || (c >= 0xFC5E && c <= 0xFD3D) ? 2
                         : c == 0xFDF2 || c == 0xFB2C || c == 0xFB2D                  ? 3
                         : (c >= 0xFB2A && c <= 0xFB4F) || c >= 0x10000               ? 2
                                                                                      : 1;
    ASSERT_EQ(AtomUnits(c), expected) << c;
    ASSERT_EQ(AtomParts(c), c >= 0x10000 ? 1 : expected) << c;
  }
}

TEST_F(Runs, SurrogatePairIsOneAtom) {
  const auto run = RunOf(u"a\U0001F600\xD800", false);
  ASSERT_EQ(run->UCS4Length(), 3);
  EXPECT_EQ(run->Atom(1), 0x1F600U);
  EXPECT_EQ(run->Atom(2), 0xD800U);
  EXPECT_EQ(run->Length(), 4);
}

TEST_F(Runs, SplitSharesTheLook) {
  const auto run = RunOf(u"abcd", false);
  run->SetColor(7, false);
  run->SetFont(std::make_shared<fmx::TFont>(u"F", 9));
  run->EnsureDrawTagsPresence();
  run->SetDrawTag(2, TDrawTagRec::CreateTabAdvance(3));
  const auto rest = run->Split(TSplitIndex::Of(1, 1));
  EXPECT_EQ(Shown(*run), "0+1 L 0-0");
  EXPECT_EQ(Shown(*rest), "1+3 L 0-0");
  EXPECT_EQ(rest->Atom(0), U'b');
  EXPECT_EQ(rest->Color(), 7U);
  EXPECT_FALSE(rest->IsDefaultColor());
  EXPECT_EQ(rest->Font(), run->Font());
  EXPECT_EQ(rest->DrawTag(1).TagType, TDrawTagRec::TTagType::None);
  EXPECT_EQ(run->DrawTag(2).TabAdvance(), 3);
}

TEST_F(Runs, SplitCanSkipAUnit) {
  const auto run = RunOf(u"ab cd", false);
  const auto rest = run->SplitAndSkipSpace(TSplitIndex::Of(2, 2));
  EXPECT_EQ(Shown(*run), "0+2 L 0-0");
  EXPECT_EQ(Shown(*rest), "3+2 L 0-0");
  EXPECT_EQ(run->UCS4Length(), 2);
  EXPECT_EQ(rest->UCS4Length(), 2);
}

TEST_F(Runs, SplitBeyondTheEndLeavesNothing) {
  const auto run = RunOf(u"ab", false);
  const auto rest = run->SplitAndSkipSpace(TSplitIndex::Of(9, 9));
  EXPECT_EQ(Shown(*run), "0+2 L 0-0");
  EXPECT_EQ(Shown(*rest), "2+0 L 0-0");
}

TEST_F(Runs, DeletingCountsTheAtomsOwnUnits) {
  const auto run = RunOf(Salam);
  run->DeleteTextFromEnd(2);  // the letter and the folded pair
  EXPECT_EQ(run->Length(), 2);
  EXPECT_EQ(run->UCS4Length(), 1);
  const auto pair = RunOf(u"\U0001F600ab", false);
  pair->DeleteTextFromStart(1);
  EXPECT_EQ(Shown(*pair), "2+2 L 0-0");
  pair->DeleteTextFromEnd(100);
  EXPECT_EQ(Shown(*pair), "2+0 L 0-0");
}

TEST_F(Runs, DefaultColourNeverTakesAnAttributesPlace) {
  TGPURun run(PlainStore());
  run.SetColor(1, true);
  EXPECT_EQ(run.Color(), 1U);
  run.SetColor(2, false);
  run.SetColor(3, true);
  EXPECT_EQ(run.Color(), 2U);
  EXPECT_FALSE(run.IsDefaultColor());
}

TEST_F(Runs, TagOfAnotherTypeHasNoTabAdvance) {
  TGPURun run(PlainStore());
  EXPECT_THROW(run.DrawTag(0).TabAdvance(), rtl::Exception);
  EXPECT_EQ(TDrawTagRec::CreateTabAdvance(4).TabAdvance(), 4);
}

#ifdef ORV_ASSERTIONS
TEST_F(Runs, GlyphOfNoAtomIsABrokenInvariant) {
  const auto run = RunOf(u"ab", false);
  const fmx::TFont font(u"", 12);
  TAtomDic& dic = TGlyphAtlas::GetAtomDictionary(font, 1);
  const auto message = [&](std::int32_t index) -> std::string {
    try {
      run->AddOrGetAtomGlyph(nullptr, index, dic, font, 1);
    } catch (const rtl::EAssertionFailed& error) {
      return error.what();
    }
    return {};
  };
  EXPECT_NE(message(-1).find("AtomIndex must be greater than 0"), std::string::npos) << message(-1);
  EXPECT_NE(message(2).find("AtomIndex=2, Count=2"), std::string::npos) << message(2);
  EXPECT_EQ(message(1), "");
}
#endif

TEST_F(Runs, SplitIndexesAreHeldWithinSixteenBits) {
#ifdef ORV_ASSERTIONS
  EXPECT_THROW(TSplitIndex::Of(40000, 40000), rtl::EAssertionFailed);
#else
  EXPECT_EQ(TSplitIndex::Of(40000, 40000), (TSplitIndex{32767, 32767}));
#endif
  EXPECT_EQ(TSplitIndex::Of(32767, -1), (TSplitIndex{32767, -1}));
}

TEST_F(Runs, QuoteBehindANumberOfTheRunBefore) {
  TGPURun number(PlainStore()), quote(PlainStore()), word(PlainStore());
  number.SetText(u"5", 0, 1, false);
  quote.SetText(u"\"\u0627", 0, 2, true);
  quote.ReplaceQuoteMeasuresToPrimes(&number);
  EXPECT_EQ(quote.Atom(0), 0x2036U);
  word.SetText(u"5\"", 0, 2, false);
  word.ReplaceQuoteMeasuresToPrimes(&number);
  EXPECT_EQ(word.Atom(1), 0x2033U);
}

// --- Lines ---

// A line of one-letter runs "a", "b", ... in that visual order.
TStored<TGPULine> LineOf(TList order, TFrameStore& store = PlainStore()) {
  auto line = store.New<TGPULine>(store);
  const auto count = static_cast<std::int32_t>(order.size());
  line->SetVisualOrderList(order);
  for (std::int32_t i = 0; i < count; ++i) {
    auto run = store.New<TGPURun>(store);
    run->SetText(u"abcdefgh", i, 1, false);
    line->Add(std::move(run));
  }
  return line;
}

TList Starts(const TGPULine& line) {
  TList starts;
  for (std::int32_t i = 0; i < line.Count(); ++i) starts.push_back(line.Item(i).StartIndex());
  return starts;
}

TEST_F(LineOrder, BreakAtTheVeryEndLeavesTheLine) {
  const auto line = LineOf({0, 1});
  EXPECT_EQ(line->BreakLine(line->Item(1), TSplitIndex::Of(1, 1), false), nullptr);
  EXPECT_EQ(line->Count(), 2);
}

TEST_F(LineOrder, NothingIsBeforeTheFirstRun) {
  const auto line = LineOf({0, 1});
  EXPECT_EQ(line->SplitBeforeRun(line->Item(0)), nullptr);
  line->Item(1).SetLength(0);
  EXPECT_EQ(line->SplitBeforeRun(line->Item(1)), nullptr);
}

TEST_F(LineOrder, BreakRanksTheEntriesThatMove) {
  const auto line = LineOf({2, 1, 0});
  TGPURun* last = &line->Item(2);
  const auto rest = line->BreakLine(line->Item(1), TSplitIndex::Of(0, 0), false);
  ASSERT_NE(rest, nullptr);
  EXPECT_EQ(OrderOf(*rest), (TList{1, 0}));
  EXPECT_EQ(OrderOf(*line), (TList{1, 0}));
  EXPECT_EQ(&rest->Item(1), last);  // moved, not destroyed
  EXPECT_EQ(Starts(*rest), (TList{1, 2}));
}

TEST_F(LineOrder, SplitBeforeARunMovesItWhole) {
  const auto line = LineOf({2, 1, 0});
  line->SetStartIndex(4);
  const auto rest = line->SplitBeforeRun(line->Item(1));
  EXPECT_EQ(Starts(*line), TList{0});
  EXPECT_EQ(Starts(*rest), (TList{1, 2}));
  EXPECT_EQ(OrderOf(*line), TList{0});
  EXPECT_EQ(OrderOf(*rest), (TList{1, 0}));
  EXPECT_EQ(rest->StartIndex(), 4);
}

TEST_F(LineOrder, DeleteReadsTheEntryAtTheItem) {
  const auto line = LineOf({1, 2, 0});
  line->Delete(0);
  EXPECT_EQ(OrderOf(*line), (TList{1, 0}));
  EXPECT_EQ(Starts(*line), (TList{1, 2}));
}

TEST_F(LineOrder, InsertBeyondTheEndAppends) {
  const auto line = LineOf({1, 0});
  line->Insert(PlainStore().New<TGPURun>(PlainStore()), 2, 9);
  EXPECT_EQ(OrderOf(*line), (TList{1, 0, 2}));
}

TEST_F(LineOrder, InsertShiftsItemsAndPlaces) {
  const auto line = LineOf({1, 0});
  line->Insert(PlainStore().New<TGPURun>(PlainStore()), 1, 0);
  EXPECT_EQ(OrderOf(*line), (TList{1, 2, 0}));
}

TEST_F(LineOrder, ReadingFromRightToLeftCountsFromTheEnd) {
  const auto line = LineOf({0, 2, 1});
  EXPECT_EQ(line->GetItemIndexByVisualOrderBidi(true, 0), 1);
  EXPECT_EQ(line->GetItemIndexByVisualOrderBidi(true, 2), 0);
  EXPECT_EQ(line->GetItemIndexByVisualOrderBidi(false, 1), 2);
  EXPECT_EQ(line->FindVisualIndexOf(2), 1);
  EXPECT_EQ(line->FindVisualIndexOf(7), -1);
  EXPECT_EQ(line->VisualLast().StartIndex(), 1);
}

// A font of the run tells whether it lives.
TEST_F(LineOrder, RunsDieWithTheirLineAndNotByMoving) {
  TGPUFrame frame(std::make_unique<TFrameStore>());
  const auto font = std::make_shared<fmx::TFont>(u"F", 9.0F);
  frame.Add(LineOf({0, 1, 2}, frame.Store()));
  for (std::int32_t i = 0; i < 3; ++i) frame.Line(0).Item(i).SetFont(font);
  EXPECT_EQ(font.use_count(), 4);
  frame.Insert(1, frame.Line(0).SplitBeforeRun(frame.Line(0).Item(1)));
  EXPECT_EQ(font.use_count(), 4);
  frame.Line(1).Delete(0);
  EXPECT_EQ(font.use_count(), 3);
  frame.Delete(1);
  EXPECT_EQ(font.use_count(), 2);
  frame.Delete(0);
  EXPECT_EQ(font.use_count(), 1);
}

// Whatever is done to it, an order stays a permutation with one entry for each run.
TEST_F(LineOrder, OperationsKeepPermutations) {
  std::uint32_t seed = 1;
  const auto random = [&seed](std::int32_t below) {
    seed = seed * 1664525 + 1013904223;
    return static_cast<std::int32_t>((seed >> 8) % static_cast<std::uint32_t>(below));
  };
  for (int round = 0; round < 2000; ++round) {
    auto line = LineOf({3, 0, 2, 1, 4});
    for (int step = 0; step < 6 && line->Count() > 1; ++step) {
      const std::int32_t item = random(line->Count());
      switch (random(4)) {
        case 0:
          line->Delete(item);
          break;
        case 1:
          line->Insert(PlainStore().New<TGPURun>(PlainStore()), item, random(9));
          break;
        case 2:
          if (auto rest = line->SplitBeforeRun(line->Item(item))) line = std::move(rest);
          break;
        default:
          if (auto rest = line->BreakLine(line->Item(item), TSplitIndex::Of(0, 0), true); rest && random(2) == 0)
            line = std::move(rest);
      }
      TList order = OrderOf(*line);
      std::sort(order.begin(), order.end());
      ASSERT_EQ(order.size(), static_cast<std::size_t>(line->Count()));
      for (std::size_t i = 0; i < order.size(); ++i) ASSERT_EQ(order[i], static_cast<std::int32_t>(i));
    }
  }
}

TEST_F(LineOrder, TabsAndTextsBecomeRunsOfTheirOwn) {
  const auto layout = Laid(u"abc\tde\t\t", 1000);
  TGPULine line(PlainStore());
  line.SetVisualOrderList(TList{0});
  auto run = PlainStore().New<TGPURun>(PlainStore());
  run->SetText(layout->CharSequence(), 0, 8, false);
  line.Add(std::move(run));
  line.SplitAtTabs(*layout, 0, 0);
  TTexts runs;
  for (std::int32_t i = 0; i < line.Count(); ++i) runs.push_back(Shown(line.Item(i)));
  EXPECT_EQ(runs, (TTexts{"0+3 L 0-0", "3+1 L 0-0", "4+2 L 0-0", "6+2 L 0-0"}));
  EXPECT_EQ(OrderOf(line), (TList{0, 1, 2, 3}));
}

}  // namespace
}  // namespace orv
