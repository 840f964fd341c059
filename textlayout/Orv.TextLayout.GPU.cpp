#include "textlayout/Orv.TextLayout.GPU.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "fmx/Limits.h"
#include "fmx/Log.h"
#include "fmx/Rounding.h"
#include "fmx/Services.h"
#include "rtl/Assertions.h"
#include "rtl/Unicode.h"
#include "textlayout/Orv.TextLayout.GPU.Pass.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv {

void RequireFinite(float value, std::string_view what) {
  if (!std::isfinite(value)) throw ENotFinite(std::string(what) + " must be a finite number");
}

TClass TTextLayoutNGOrv::Class() {
  return CompiledLayout<TTextLayoutNGOrv, fmx::TGPUTextLayout>("Orv.TextLayout.GPU", "TTextLayoutNGOrv");
}

TTextLayoutNGOrv::TTextLayoutNGOrv(fmx::TCanvas* canvas, TClass aClass)
    : TGPUTextLayout(canvas, aClass),
      FFrame(std::make_unique<TGPUFrame>(std::make_unique<TFrameStore>())),
      FStrokeBrush(fmx::TAlphaColors::Black) {
  TakeScale(fmx::ScreenScale());
}

TTextLayoutNGOrv::~TTextLayoutNGOrv() = default;

// --- Properties ---

void TTextLayoutNGOrv::TakeScale(float scale) {
  if (!(scale > 0)) return;
  FScale = scale;
  FScaleFactor = 1 / scale;
}

void TTextLayoutNGOrv::SetScale(float scale) {
  RequireFinite(scale, "Scale");
  TakeScale(scale);
  NeedUpdate();
}

void TTextLayoutNGOrv::SetTabSize(float size) {
  RequireFinite(size, "TabSize");
  FTabSize = std::max(size, 0.0F);
}

void TTextLayoutNGOrv::SetMeasuringText(bool measuring) {
  if (FMeasuringText == measuring) return;
  FMeasuringText = measuring;
  Call<TSlots::DoRenderLayout>();
}

// --- Direction ---

namespace {

enum class TVerdict : std::uint8_t { RightToLeft, LeftToRight, None };

constexpr bool IsIn(char16_t c, char16_t low, char16_t high) {
  return c >= low && c <= high;
}

constexpr bool DecidesRightToLeft(char16_t c) {
  return c == 0x200F || c == 0x2E2E || IsIn(c, 0x2035, 0x2037) || IsIn(c, 0x0591, 0x065F) || IsIn(c, 0x066E, 0x06EF) ||
         IsIn(c, 0x06FA, 0x06FF) || IsIn(c, 0x0660, 0x0669) || IsIn(c, 0x06F0, 0x06F9);
}

constexpr bool IsAsciiDigit(char16_t c) {
  return IsIn(c, u'0', u'9');
}

// A comma behind digits that count may be the mark of their thousands.
constexpr bool EndsLeftToRight(char16_t c, bool digits) {
  return c == 0x200E || c == u'?' || c == u';' || (c == u',' && !digits) || IsIn(c, 0x2032, 0x2034);
}

bool IsLeftToRightLetter(char16_t c) {
  return rtl::IsLetterOrDigit(c) && !TDirectiveChars::IsRTL(c) && !IsIn(c, 0xFB1D, 0xFEFE);
}

TVerdict VerdictOf(char16_t c, bool digits) {
  if (DecidesRightToLeft(c)) return TVerdict::RightToLeft;
  if (IsAsciiDigit(c)) return TVerdict::None;
  return EndsLeftToRight(c, digits) || IsLeftToRightLetter(c) ? TVerdict::LeftToRight : TVerdict::None;
}

}  // namespace

bool TTextLayoutNGOrv::IsTextRightToLeft() const {
  if (RightToLeft()) return true;
  const bool digitsCount = HorizontalAlign() != fmx::TTextAlign::Leading;
  bool digits = false;
  for (const char16_t c : Text()) {
    const TVerdict verdict = VerdictOf(c, digits);
    if (verdict != TVerdict::None) return verdict == TVerdict::RightToLeft;
    digits = digits || (digitsCount && IsAsciiDigit(c));
  }
  return digits;
}

// --- Glyphs ---

const fmx::TCharRec& TTextLayoutNGOrv::LayoutGlyph(UCS4Char character) const {
  return TGPURun::AddOrGetCharGlyph(nullptr, character, TGlyphAtlas::GetAtomDictionary(Font(), FScale), Font(), FScale);
}

// Where measuring only reads, a tab without a tag has no width (TabMeasure).
float TTextLayoutNGOrv::MeasuredTab(const TGPURun& run, std::int32_t index) {
  const TDrawTagRec tag = run.DrawTag(index);
  const bool isMissing = tag.TagType != TDrawTagRec::TTagType::TabAdvance;
  return isMissing && run.Corrects(TOrvCorrection::TabMeasure) ? 0 : tag.TabAdvance();
}

std::span<const TAtomPlace> TTextLayoutNGOrv::PlacesOf(const TGPURun& run) const {
  TAtomDic* dic = nullptr;
  return run.Places([&](std::int32_t index) {
    if (run.Atom(index) == U'\t') return MeasuredTab(run, index) * FScaleFactor;
    if (dic == nullptr) dic = &DictionaryOf(run);
    return run.AddOrGetAtomGlyph(nullptr, index, *dic, GetFontFor(run), FScale).Glyph.Advance * FScaleFactor;
  });
}

float TTextLayoutNGOrv::GetNextTab(TGPURun& run, std::int32_t index, float position) const {
  ORV_ASSERT(run.Atom(index) == U'\t', "to make sure that it is space");
  const float place = position / FScaleFactor;
  float advance = 0;
  if (FTabSize > 0) {
    const auto stops = static_cast<float>(fmx::Trunc(place / FTabSize + 1));
    advance = stops * FTabSize - place;
  }
  run.EnsureDrawTagsPresence();
  run.SetDrawTag(index, TDrawTagRec::CreateTabAdvance(advance));
  return advance;
}

// --- Rendering ---

bool TTextLayoutNGOrv::CanvasHasOtherScale() const {
  return Canvas() != nullptr && !fmx::SameValue(Canvas()->Scale(), FScale, fmx::ScaleTolerance);
}

void TTextLayoutNGOrv::DoRenderLayout() {
  fmx::Log::d("DoRenderLayout:Start");
  if (FBidiSelectionType != TBidiSelectionType::btManual) StoreRightToLeft(IsTextRightToLeft());
  FOldColor = Color();
  FFrame3D.reset();
  FUnclippedFrame.reset();
  FLacksText.reset();
  if (CanvasHasOtherScale()) TakeScale(Canvas()->Scale());
  FFontKey = FontKeyOf(Font(), FScale);
  if (FTabSize == 0) FTabSize = 8 * LayoutGlyph(U' ').Glyph.Advance;
  auto frame = CreateFrame(std::move(FSpareStore));
  FSpareStore = TGPUFrame::TakeStore(std::exchange(FFrame, std::move(frame)));
  ApplyAttributes(*FFrame);
  TLayoutPass(*this, *FFrame).Run();
  fmx::Log::d("DoRenderLayout:End");
}

// --- Measures ---

float TTextLayoutNGOrv::GetTextWidth() {
  return FFrame->Width();
}

float TTextLayoutNGOrv::GetTextHeight() {
  if (fmx::SameValue(MaxSize().Y, MaxLayoutSize.Y, fmx::ScaleTolerance)) return FFrame->Height();
  return std::min(FFrame->Height(), MaxSize().Y);
}

fmx::TRectF TTextLayoutNGOrv::GetTextRect() {
  const float width = FFrame->Count() < 2 ? GetTextWidth() : MaxSize().X - Font().Size() / 3;
  fmx::TPointF corner = FFrame->TopLeft() + TopLeft();
  if (FFrame->TopLeft().Y < 0) corner.Y -= FFrame->TopLeft().Y;
  return fmx::TRectF::FromSize(corner, width, GetTextHeight());
}

}  // namespace orv
