// What holds for layouts of random texts.
#include <cmath>

#include "fmx/RecordingCanvas.h"
#include "rtl/Unicode.h"
#include "tests/textlayout/support/Layouts.h"

namespace orv {
namespace {

using namespace testing;

class Laws : public TFixedTest {
 protected:
  // By the plain rules a line end may take with it what follows.
  Laws() { TOrvGlobalSettings::Corrections = {TOrvCorrection::LineEnds}; }

  std::int32_t Random(std::int32_t below) { return FChance.Below(below); }

  std::u16string RandomText(std::int32_t longest) {
    static const std::u16string all[] = {u"abc",
                                         u"x",
                                         u"\u0633\u0644\u0627\u0645",
                                         u"\u0628\u064E\u0651",
                                         u" ",
                                         u"  ",
                                         u"12.5",
                                         u"(a)",
                                         u"\n",
                                         u"\r\n",
                                         u"\u0644\u0627",
                                         u"\U0001F600",
                                         u"-",
                                         u"\u06F1",
                                         u"%",
                                         u"e\u0301",
                                         u"\u200C",
                                         u"\xDC00",
                                         u"\t",
                                         u"\uFDF2",
                                         u"\u05D0\u05B7\u05BC\u05D1"};
    return FChance.Text(all, longest);
  }

 private:
  TChance FChance{20240607};
};

bool IsSkipped(char16_t unit) {
  return rtl::GetUnicodeCategory(unit) == rtl::TUnicodeCategory::Zs || unit == u'\r' || unit == u'\n';
}

// Every unit is in one run, or is a blank that wrapping skipped, or ends a line.
void ExpectPartition(const TTextLayoutNGOrv& layout) {
  std::vector<int> holders(layout.Text().size());
  for (std::int32_t i = 0; i < layout.Frame().Count(); ++i)
    for (std::int32_t k = 0; k < layout.Frame().Line(i).Count(); ++k) {
      const TGPURun& run = layout.Frame().Line(i).Item(k);
      for (std::int32_t unit = run.StartIndex(); unit < run.EndIndex(); ++unit)
        ++holders.at(static_cast<std::size_t>(unit));
    }
  for (std::size_t i = 0; i < holders.size(); ++i)
    ASSERT_TRUE(holders[i] == 1 || (holders[i] == 0 && IsSkipped(layout.Text()[i]))) << "unit " << i;
}

// The runs of a line stand side by side, and are as wide as it together. An empty run among others makes its line 1
// wide, whatever they are.
void ExpectTiledLines(const TTextLayoutNGOrv& layout) {
  for (std::int32_t i = 0; i < layout.Frame().Count(); ++i) {
    const TGPULine& line = layout.Frame().Line(i);
    float x = 0;
    bool hasEmptyRun = false;
    for (std::int32_t k = 0; k < line.Count(); ++k) {
      const TGPURun& run = line.GetItemByVisualOrder(k);
      ASSERT_NEAR(run.ImageRect().Left, x, 1e-3) << "line " << i;
      ASSERT_GE(run.GetWidth(), -1e-3F);
      x += run.GetWidth();
      hasEmptyRun = hasEmptyRun || run.Length() == 0;
    }
    if (!hasEmptyRun) {
      ASSERT_NEAR(line.Width(), x, 1e-3) << "line " << i;
    }
    ASSERT_LE(line.Width(), layout.Frame().Width() + 1e-3F);
  }
}

TEST_F(Laws, UnlimitedTextIsTiled) {
  for (int round = 0; round < 3000; ++round) {
    const auto layout = Laid(RandomText(20), 100000, [](auto& l) { l.SetMaxSize(fmx::MaxLayoutSize); });
    SCOPED_TRACE(round);
    ASSERT_NO_FATAL_FAILURE(ExpectPartition(*layout));
    ASSERT_NO_FATAL_FAILURE(ExpectTiledLines(*layout));
  }
}

// Whatever is asked of whatever text in whatever box, an answer comes or a named exception, and every number is finite.
TEST_F(Laws, NothingBreaksALayout) {
  fmx::TRecordingCanvas canvas(300, 300);
  int answered = 0;
  for (int round = 0; round < 3000; ++round) {
    SCOPED_TRACE(round);
    const std::u16string text = RandomText(16);
    const auto length = static_cast<std::int32_t>(text.size()) + 1;
    try {
      const auto layout = Laid(text, 0, [&](auto& l) {
        l.SetMaxSize({static_cast<float>(Random(150)), static_cast<float>(Random(90))});
        l.SetWordWrap(Random(2) == 0);
        l.SetTrimming(static_cast<fmx::TTextTrimming>(Random(3)));
        l.SetHorizontalAlign(static_cast<fmx::TTextAlign>(Random(3)));
        l.SetVerticalAlign(static_cast<fmx::TTextAlign>(Random(3)));
        l.SetRightToLeft(Random(4) == 0);
        l.SetScale(1 + static_cast<float>(Random(3)) / 2);
        for (std::int32_t i = Random(4); i > 0; --i)
          l.AddAttribute(std::make_unique<TTextAttributedRangeBidi>(
              fmx::TTextRange{Random(length), Random(length)},
              fmx::TTextAttribute{Random(2) == 0 ? std::make_shared<fmx::TFont>(u"F", 9.0F) : nullptr, 7},
              Random(3) == 0));
      });
      for (const auto& region : {layout->RegionForRange({Random(length), Random(length)}),
                                 layout->MeasureRange(Random(length) - 2, Random(length) + 2)})
        for (const fmx::TRectF& rect : region) ASSERT_TRUE(rect.IsFinite());
      const std::int32_t position = Hit(*layout, static_cast<float>(Random(200)) - 20, static_cast<float>(Random(80)));
      ASSERT_GE(position, -1);
      ASSERT_LE(position, length - 1);
      ASSERT_TRUE(std::isfinite(layout->TextWidth()));
      fmx::TPathData path;
      layout->ConvertToPath(path);
      ASSERT_TRUE(path.GetBounds().IsFinite());
      canvas.Forget();
      canvas.BeginScene();
      layout->RenderLayout(canvas);
      canvas.EndScene();
      ++answered;
    } catch (const rtl::Exception&) {
    }
  }
  EXPECT_GT(answered, 1500);
}

}  // namespace
}  // namespace orv
