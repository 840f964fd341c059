#include "textlayout/Orv.TextLayout.GPU.Run.h"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

#include "rtl/Assertions.h"
#include "rtl/Exceptions.h"
#include "rtl/Unicode.h"
#include "textlayout/Orv.TextLayout.GPU.Glyphs.h"
#include "textlayout/Orv.TextLayout.Internal.h"
#include "unicode/OrvSystem.GlobalSettings.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv {
namespace {

std::int16_t Narrowed(std::int32_t index) {
  using TLimits = std::numeric_limits<std::int16_t>;
  ORV_ASSERT(index >= TLimits::min() && index <= TLimits::max(), "A run is split beyond 32767");
  return static_cast<std::int16_t>(std::clamp<std::int32_t>(index, TLimits::min(), TLimits::max()));
}

bool DigitsAreLatin() {
  return TOrvGlobalSettings::ArabicDigitType == TOrvGlobalSettings::TArabicDigitType::Latin;
}

}  // namespace

int AtomParts(UCS4Char atom) {
  return TDirectiveChars::CharactersCount(atom);
}

int AtomUnits(UCS4Char atom) {
  return TDirectiveChars::CharactersCountEx(atom);
}

TSplitIndex TSplitIndex::Of(std::int32_t utf32Index, std::int32_t utf16Index) {
  return {Narrowed(utf32Index), Narrowed(utf16Index)};
}

float TDrawTagRec::TabAdvance() const {
  if (TagType != TTagType::TabAdvance) throw rtl::Exception("Internal Error");
  return Value;
}

TGPURun::TGPURun(std::shared_ptr<TUCS4List> atoms) : FAtoms(atoms ? std::move(atoms) : std::make_shared<TUCS4List>()) {}

TGPURun::~TGPURun() = default;

// --- Text ---

void TGPURun::SetText(std::u16string_view text, std::int32_t start, std::int32_t length, bool rightToLeft) {
  const auto size = static_cast<std::int32_t>(text.size());
  FStartIndex = std::clamp(start, 0, size);
  SetLength(std::clamp(length, 0, size - FStartIndex));
  FRightToLeft = rightToLeft;
  FFirstAtom = static_cast<std::int32_t>(FAtoms->size());
  AppendUtf16(text.substr(static_cast<std::size_t>(FStartIndex), static_cast<std::size_t>(FLength)), *FAtoms);
  FAtomCount = static_cast<std::int32_t>(FAtoms->size()) - FFirstAtom;
}

std::span<const UCS4Char> TGPURun::Atoms() const {
  return std::span(*FAtoms).subspan(static_cast<std::size_t>(FFirstAtom), static_cast<std::size_t>(FAtomCount));
}

UCS4Char TGPURun::Atom(std::int32_t index) const {
  return index >= 0 && index < FAtomCount ? Atoms()[static_cast<std::size_t>(index)] : 0;
}

std::int32_t TGPURun::UCS4IndexToUTF16Index(std::int32_t index) const {
  ORV_ASSERT(FLength >= FAtomCount, "A run has more atoms than units");
  const std::int32_t folded = FLength - FAtomCount;
  if (folded == 0 || index < 0) return index;
  std::int32_t sum = 0;
  for (std::int32_t i = 0; i < FAtomCount && i <= index && sum != folded; ++i) sum += AtomUnits(Atom(i)) - 1;
  return index + sum;
}

std::int32_t TGPURun::UTF16IndexToUCS4Index(std::int32_t index) const {
  ORV_ASSERT(FLength >= FAtomCount, "A run has more atoms than units");
  const std::int32_t folded = FLength - FAtomCount;
  if (folded == 0) return index;
  std::int32_t sum = 0;
  std::int32_t position = 0;
  for (std::int32_t i = 0; i < FAtomCount && position <= index; ++i) {
    const std::int32_t units = AtomUnits(Atom(i));
    sum += units - 1;
    if (sum == folded) break;
    position += units;
  }
  return index - sum;
}

std::unique_ptr<TGPURun> TGPURun::SplitSkipping(TSplitIndex at, std::int32_t skipped) {
  const std::int32_t units = std::clamp<std::int32_t>(at.Utf16Index, 0, FLength);
  const std::int32_t atoms = std::clamp<std::int32_t>(at.Utf32Index, 0, FAtomCount);
  const std::int32_t skippedUnits = std::min(skipped, FLength - units);
  const std::int32_t skippedAtoms = std::min(skipped, FAtomCount - atoms);
  auto rest = std::make_unique<TGPURun>(FAtoms);
  rest->FStartIndex = FStartIndex + units + skippedUnits;
  rest->FLength = FLength - units - skippedUnits;
  rest->FFirstAtom = FFirstAtom + atoms + skippedAtoms;
  rest->FAtomCount = FAtomCount - atoms - skippedAtoms;
  rest->FRightToLeft = FRightToLeft;
  rest->FColor = FColor;
  rest->FIsDefaultColor = FIsDefaultColor;
  rest->FFont = FFont;
  FLength = units;
  FAtomCount = atoms;
  return rest;
}

std::unique_ptr<TGPURun> TGPURun::Split(TSplitIndex at) {
  return SplitSkipping(at, 0);
}

std::unique_ptr<TGPURun> TGPURun::SplitAndSkipSpace(TSplitIndex at) {
  return SplitSkipping(at, 1);
}

void TGPURun::DeleteTextFromEnd(std::int32_t count) {
  for (count = std::clamp(count, 0, FAtomCount); count > 0; --count) {
    FLength -= OwnUnits(Atom(FAtomCount - 1));
    --FAtomCount;
  }
}

void TGPURun::DeleteTextFromStart(std::int32_t count) {
  for (count = std::clamp(count, 0, FAtomCount); count > 0; --count) {
    const std::int32_t units = OwnUnits(Atom(0));
    FStartIndex += units;
    FLength -= units;
    ++FFirstAtom;
    --FAtomCount;
  }
}

// --- Presentation forms ---

// Transforms the atoms in place; the transforms may shorten a list, never lengthen it.
template <typename TTransform>
void TGPURun::Transform(TTransform transform) {
  thread_local TUCS4List scratch;
  const auto atoms = Atoms();
  scratch.assign(atoms.begin(), atoms.end());
  transform(scratch);
  const bool isLast = AtomsEnd() == FAtoms->size();
  FAtomCount = std::min(FAtomCount, static_cast<std::int32_t>(scratch.size()));
  std::copy_n(scratch.begin(), FAtomCount, FAtoms->begin() + FFirstAtom);
  if (isLast) FAtoms->resize(AtomsEnd());
}

void TGPURun::PrepareArabicDigits() {
  if (!DigitsAreLatin()) Transform(TUCS4ListHelper::ChangeToArabicDigits);
}

void TGPURun::PrepareComplexArabicCombinations() {
  if (!FRightToLeft) return;
  Transform([](TUCS4List& list) {
    TUCS4ListHelper::ChangeToComplexCharacters(list, true);
    if (!DigitsAreLatin()) TUCS4ListHelper::ChangeToArabicDigits(list);
  });
}

void TGPURun::ReplaceQuoteMeasuresToPrimes(const TGPURun* previous) {
  if (!FRightToLeft || previous == nullptr) {
    Transform(TUCS4ListHelper::ReplaceQuotesWithPrimes);
    return;
  }
  const UCS4Char first = Atom(0);
  const bool closesMeasure = (first == U'\'' || first == U'"') && !previous->FRightToLeft &&
                             rtl::IsNumber(previous->Atom(previous->FAtomCount - 1));
  if (closesMeasure) TUCS4ListHelper::QuoteToReversePrime((*FAtoms)[static_cast<std::size_t>(FFirstAtom)]);
}

// --- Look and place ---

void TGPURun::SetColor(fmx::TAlphaColor color, bool isDefault) {
  if (isDefault && !FIsDefaultColor) return;
  FColor = color;
  FIsDefaultColor = isDefault;
}

void TGPURun::MakeAtLeastAsHighAs(float height) {
  FImageRect.Bottom = FImageRect.Top + std::max(FImageRect.Height(), height);
}

void TGPURun::MoveTo(float left) {
  const float width = GetWidth();
  FImageRect.Left = left;
  FImageRect.Right = left + width;
}

// --- Draw tags ---

void TGPURun::EnsureDrawTagsPresence() {
  if (FDrawTags.empty()) FDrawTags.resize(static_cast<std::size_t>(FAtomCount));
}

void TGPURun::SetDrawTag(std::int32_t index, TDrawTagRec tag) {
  if (index >= 0 && static_cast<std::size_t>(index) < FDrawTags.size())
    FDrawTags[static_cast<std::size_t>(index)] = tag;
}

TDrawTagRec TGPURun::DrawTag(std::int32_t index) const {
  return index >= 0 && static_cast<std::size_t>(index) < FDrawTags.size() ? FDrawTags[static_cast<std::size_t>(index)]
                                                                          : TDrawTagRec{};
}

// --- The internal text layout ---

void TGPURun::UpdateTextLayout(std::shared_ptr<fmx::TFont> font, std::int32_t line, TTextLayoutNGOrv& layout) {
  if (!FInternalTextLayout) FInternalTextLayout = TInternalTextLayout::CreateInternalTextLayout();
  FInternalTextLayout->Attach(layout, line, *this);
  FFont = std::move(font);
}

// --- Glyphs ---

const fmx::TCharRec& TGPURun::AddOrGetAtomGlyph(const fmx::TCanvas* canvas, std::int32_t atomIndex, TAtomDic& dic,
                                                const fmx::TFont& font, float scale, bool path) const {
  ORV_ASSERT(atomIndex >= 0, "AtomIndex must be greater than 0");
  ORV_ASSERT(atomIndex < FAtomCount,
             "AtomIndex=" + std::to_string(atomIndex) + ", Count=" + std::to_string(FAtomCount));
  return AddOrGetCharGlyph(canvas, Atom(atomIndex), dic, font, scale, path);
}

}  // namespace orv
