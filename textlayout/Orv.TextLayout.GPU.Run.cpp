#include "textlayout/Orv.TextLayout.GPU.Run.h"

#include <algorithm>
#include <iterator>
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

// AtomUnits beyond one, added up without a branch: most atoms of a text stand for one unit, and lines are split often.
constexpr std::int32_t FoldedUnits(UCS4Char atom) {
  const auto isIn = [atom](UCS4Char low, UCS4Char high) { return static_cast<std::int32_t>(atom - low <= high - low); };
  return isIn(0xFEF5, 0xFEFC) + isIn(0xFC5E, 0xFD3D) + 2 * isIn(0xFDF2, 0xFDF2) + isIn(0xFB2A, 0xFB4F) +
         isIn(0xFB2C, 0xFB2D) + isIn(0x10000, 0xFFFFFFFF);
}

}  // namespace

TSplitIndex TSplitIndex::Of(std::int32_t utf32Index, std::int32_t utf16Index) {
  return {Narrowed(utf32Index), Narrowed(utf16Index)};
}

float TDrawTagRec::TabAdvance() const {
  if (TagType != TTagType::TabAdvance) throw rtl::Exception("Internal Error");
  return Value;
}

TGPURun::TGPURun(TFrameStore& store) : FStore(&store) {}

TGPURun::~TGPURun() = default;

// --- Text ---

void TGPURun::SetText(std::u16string_view text, std::int32_t start, std::int32_t length, bool rightToLeft) {
  const auto size = static_cast<std::int32_t>(text.size());
  FStartIndex = std::clamp(start, 0, size);
  SetLength(std::clamp(length, 0, size - FStartIndex));
  FRightToLeft = rightToLeft;
  TUCS4List& atoms = FStore->Atoms;
  FFirstAtom = static_cast<std::int32_t>(atoms.size());
  AppendUtf16(text.substr(static_cast<std::size_t>(FStartIndex), static_cast<std::size_t>(FLength)), atoms);
  FAtomCount = static_cast<std::int32_t>(atoms.size()) - FFirstAtom;
}

std::span<const UCS4Char> TGPURun::Atoms() const {
  return std::span(FStore->Atoms).subspan(static_cast<std::size_t>(FFirstAtom), static_cast<std::size_t>(FAtomCount));
}

std::span<UCS4Char> TGPURun::MutableAtoms() {
  return std::span(FStore->Atoms).subspan(static_cast<std::size_t>(FFirstAtom), static_cast<std::size_t>(FAtomCount));
}

std::span<TAtomPlace> TGPURun::MutablePlaces() const {
  auto& places = FStore->Places;
  if (places.size() < FStore->Atoms.size()) places.resize(FStore->Atoms.size());
  return std::span(places).subspan(static_cast<std::size_t>(FFirstAtom), static_cast<std::size_t>(FAtomCount));
}

// --- The units of the atoms ---

std::int32_t TGPURun::UCS4IndexToUTF16Index(std::int32_t index) const {
  return Corrects(TOrvCorrection::SourceUnits) ? UnitOf(index) : EstimatedUnit(index);
}

std::int32_t TGPURun::UTF16IndexToUCS4Index(std::int32_t index) const {
  return Corrects(TOrvCorrection::SourceUnits) ? AtomOf(index) : EstimatedAtom(index);
}

std::int32_t TGPURun::UnitOf(std::int32_t atom) const {
  if (atom < 0) return atom;
  if (FIsOneToOne) return std::min(atom, FLength);
  std::int32_t units = atom;
  for (const UCS4Char each : Atoms().first(static_cast<std::size_t>(std::min(atom, FAtomCount))))
    units += FoldedUnits(each);
  return std::min(units, FLength);
}

std::int32_t TGPURun::AtomOf(std::int32_t unit) const {
  std::int32_t end = 0;
  for (std::int32_t atom = 0; atom < FAtomCount; ++atom) {
    end += AtomUnits(Atom(atom));
    if (end > unit) return atom;
  }
  return FAtomCount + unit - end;
}

std::int32_t TGPURun::EstimatedUnit(std::int32_t atom) const {
  ORV_ASSERT(FLength >= FAtomCount, "A run has more atoms than units");
  const std::int32_t folded = FLength - FAtomCount;
  if (folded == 0 || atom < 0) return atom;
  std::int32_t sum = 0;
  for (std::int32_t i = 0; i < FAtomCount && i <= atom && sum < folded; ++i)
    sum = std::min(sum + AtomUnits(Atom(i)) - 1, folded);
  return atom + sum;
}

std::int32_t TGPURun::EstimatedAtom(std::int32_t unit) const {
  ORV_ASSERT(FLength >= FAtomCount, "A run has more atoms than units");
  const std::int32_t folded = FLength - FAtomCount;
  if (folded == 0) return unit;
  std::int32_t sum = 0;
  std::int32_t position = 0;
  for (std::int32_t i = 0; i < FAtomCount && position <= unit; ++i) {
    const std::int32_t units = AtomUnits(Atom(i));
    sum = std::min(sum + units - 1, folded);
    if (sum == folded) break;
    position += units;
  }
  return unit - sum;
}

// --- Splitting and deleting ---

TStored<TGPURun> TGPURun::SplitSkipping(TSplitIndex at, std::int32_t skipped) {
  const std::int32_t units = std::clamp<std::int32_t>(at.Utf16Index, 0, FLength);
  const std::int32_t atoms = std::clamp<std::int32_t>(at.Utf32Index, 0, FAtomCount);
  const std::int32_t skippedUnits = std::min(skipped, FLength - units);
  const std::int32_t skippedAtoms = std::min(skipped, FAtomCount - atoms);
  auto rest = FStore->New<TGPURun>(*FStore);
  rest->FStartIndex = FStartIndex + units + skippedUnits;
  rest->FLength = FLength - units - skippedUnits;
  rest->FFirstAtom = FFirstAtom + atoms + skippedAtoms;
  rest->FAtomCount = FAtomCount - atoms - skippedAtoms;
  rest->FRightToLeft = FRightToLeft;
  rest->FIsOneToOne = FIsOneToOne;
  rest->FColor = FColor;
  rest->FIsDefaultColor = FIsDefaultColor;
  rest->FFont = FFont;
  const std::int32_t kept = atoms + skippedAtoms;
  if (Corrects(TOrvCorrection::TabTags) && !FDrawTags.empty())
    rest->FDrawTags.assign(FDrawTags.begin() + std::min<std::ptrdiff_t>(kept, std::ssize(FDrawTags)), FDrawTags.end());
  FLength = units;
  FAtomCount = atoms;
  return rest;
}

TStored<TGPURun> TGPURun::Split(TSplitIndex at) {
  return SplitSkipping(at, 0);
}

TStored<TGPURun> TGPURun::SplitAndSkipSpace(TSplitIndex at) {
  return SplitSkipping(at, 1);
}

// What the run's length loses with the atom.
std::int32_t TGPURun::UnitsOfDeleted(std::int32_t index) const {
  const std::int32_t units = Corrects(TOrvCorrection::DeleteUnits) ? AtomUnits(Atom(index)) : OwnUnits(Atom(index));
  return std::min(units, FLength);
}

void TGPURun::DeleteTextFromEnd(std::int32_t count) {
  for (count = std::clamp(count, 0, FAtomCount); count > 0; --count) {
    FLength -= UnitsOfDeleted(FAtomCount - 1);
    --FAtomCount;
  }
}

void TGPURun::DeleteTextFromStart(std::int32_t count) {
  count = std::clamp(count, 0, FAtomCount);
  if (Corrects(TOrvCorrection::TabTags) && !FDrawTags.empty())
    FDrawTags.erase(FDrawTags.begin(), FDrawTags.begin() + std::min<std::ptrdiff_t>(count, std::ssize(FDrawTags)));
  for (; count > 0; --count) {
    const std::int32_t units = UnitsOfDeleted(0);
    FStartIndex += units;
    FLength -= units;
    ++FFirstAtom;
    --FAtomCount;
  }
}

// --- Presentation forms ---

void TGPURun::PrepareArabicDigits() {
  if (!DigitsAreLatin()) TUCS4ListHelper::ChangeToArabicDigits(MutableAtoms());
}

void TGPURun::PrepareComplexArabicCombinations() {
  if (!FRightToLeft) return;
  const bool isLast = static_cast<std::size_t>(FFirstAtom + FAtomCount) == FStore->Atoms.size();
  const std::int32_t count = FAtomCount;
  FAtomCount = static_cast<std::int32_t>(TUCS4ListHelper::ShapeInPlace(MutableAtoms()));
  FIsOneToOne = FIsOneToOne && FAtomCount == count;
  if (isLast) FStore->Atoms.resize(static_cast<std::size_t>(FFirstAtom + FAtomCount));
  PrepareArabicDigits();
}

void TGPURun::ReplaceQuoteMeasuresToPrimes(const TGPURun* previous) {
  if (!FRightToLeft || previous == nullptr) {
    TUCS4ListHelper::ReplaceQuotesWithPrimes(MutableAtoms());
    return;
  }
  const UCS4Char first = Atom(0);
  const bool closesMeasure = (first == U'\'' || first == U'"') && !previous->FRightToLeft &&
                             rtl::IsNumber(previous->Atom(previous->FAtomCount - 1));
  if (closesMeasure) TUCS4ListHelper::QuoteToReversePrime(MutableAtoms().front());
}

// --- Look and place ---

void TGPURun::SetColor(fmx::TAlphaColor color, bool isDefault) {
  if (isDefault && !FIsDefaultColor) return;
  FColor = color;
  FIsDefaultColor = isDefault;
}

void TGPURun::SetExtent(float width, float height) {
  FImageRect.Right = FImageRect.Left + width;
  FImageRect.Bottom = FImageRect.Top + height;
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
  FStore->HasRenderers = true;
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
