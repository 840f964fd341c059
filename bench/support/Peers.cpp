#include "bench/support/Peers.h"

#include <unicode/ushape.h>

#include <algorithm>
#include <cstring>
#include <numeric>
#include <stdexcept>

namespace orv::bench {

namespace {

const FriBidiChar* FriBidiText(std::u32string_view text) {
  static_assert(sizeof(FriBidiChar) == sizeof(char32_t));
  return reinterpret_cast<const FriBidiChar*>(text.data());
}

UBiDiLevel IcuLevel(TBase base) {
  switch (base) {
    case TBase::LeftToRight:
      return 0;
    case TBase::RightToLeft:
      return 1;
    case TBase::FirstStrong:
      break;
  }
  return UBIDI_DEFAULT_LTR;
}

FriBidiParType FriBidiBase(TBase base) {
  switch (base) {
    case TBase::LeftToRight:
      return FRIBIDI_PAR_LTR;
    case TBase::RightToLeft:
      return FRIBIDI_PAR_RTL;
    case TBase::FirstStrong:
      break;
  }
  return FRIBIDI_PAR_ON;
}

void Check(UErrorCode error) {
  if (U_FAILURE(error)) throw std::runtime_error(u_errorName(error));
}

void Check(bool done) {
  if (!done) throw std::runtime_error("FriBidi failed");
}

}  // namespace

TIcuBidi::TIcuBidi(TLogicalRuns logicalRuns) : FBidi(ubidi_open()), FLogicalRuns(logicalRuns) {}

std::int64_t TIcuBidi::Split(std::u16string_view paragraph, TBase base) {
  UErrorCode error = U_ZERO_ERROR;
  const auto length = static_cast<std::int32_t>(paragraph.size());
  ubidi_setPara(FBidi.get(), paragraph.data(), length, IcuLevel(base), nullptr, &error);
  Check(error);
  return WalkVisualRuns() + (FLogicalRuns == TLogicalRuns::ByCall ? WalkLogicalRuns(length) : WalkLevels(length));
}

std::int64_t TIcuBidi::WalkVisualRuns() {
  UErrorCode error = U_ZERO_ERROR;
  const std::int32_t count = ubidi_countRuns(FBidi.get(), &error);
  Check(error);
  std::int64_t sum = 0;
  for (std::int32_t i = 0; i < count; ++i) {
    std::int32_t start = 0;
    std::int32_t length = 0;
    sum += ubidi_getVisualRun(FBidi.get(), i, &start, &length);
    sum += start + length;
  }
  return sum;
}

std::int64_t TIcuBidi::WalkLogicalRuns(std::int32_t length) {
  std::int64_t sum = 0;
  for (std::int32_t start = 0; start < length;) {
    UBiDiLevel level = 0;
    ubidi_getLogicalRun(FBidi.get(), start, &start, &level);
    sum += level;
  }
  return sum;
}

std::int64_t TIcuBidi::WalkLevels(std::int32_t length) {
  UErrorCode error = U_ZERO_ERROR;
  const UBiDiLevel* levels = ubidi_getLevels(FBidi.get(), &error);
  Check(error);
  std::int64_t sum = 0;
  for (std::int32_t start = 0; start < length;) {
    const UBiDiLevel level = levels[start];
    start = static_cast<std::int32_t>(
        std::find_if(levels + start, levels + length, [level](UBiDiLevel l) { return l != level; }) - levels);
    sum += level;
  }
  return sum;
}

TFriBidi::TFriBidi(std::size_t longest) : FTypes(longest), FBrackets(longest), FLevels(longest), FMap(longest) {}

std::int64_t TFriBidi::Split(std::u32string_view paragraph, TBase base) {
  const auto length = static_cast<FriBidiStrIndex>(paragraph.size());
  fribidi_get_bidi_types(FriBidiText(paragraph), length, FTypes.data());
  fribidi_get_bracket_types(FriBidiText(paragraph), length, FTypes.data(), FBrackets.data());
  FriBidiParType direction = FriBidiBase(base);
  FriBidiLevel highest =
      fribidi_get_par_embedding_levels_ex(FTypes.data(), FBrackets.data(), length, &direction, FLevels.data());
  Check(highest != 0);
  std::iota(FMap.begin(), FMap.begin() + length, 0);
  highest = fribidi_reorder_line(FRIBIDI_FLAGS_DEFAULT, FTypes.data(), length, 0, direction, FLevels.data(), nullptr,
                                 FMap.data());
  Check(highest != 0);
  return FMap.front() + highest;
}

TIcuShaper::TIcuShaper(std::size_t longest) : FResult(2 * longest) {}

std::int64_t TIcuShaper::Shape(std::u16string_view paragraph, TShapeWork work) {
  constexpr std::uint32_t digits = U_SHAPE_DIGITS_EN2AN | U_SHAPE_DIGIT_TYPE_AN;
  constexpr std::uint32_t letters = U_SHAPE_LETTERS_SHAPE | U_SHAPE_LENGTH_GROW_SHRINK | U_SHAPE_TEXT_DIRECTION_LOGICAL;
  UErrorCode error = U_ZERO_ERROR;
  const std::int32_t length = u_shapeArabic(paragraph.data(), static_cast<std::int32_t>(paragraph.size()),
                                            FResult.data(), static_cast<std::int32_t>(FResult.size()),
                                            work == TShapeWork::DigitsOnly ? digits : digits | letters, &error);
  Check(error);
  return length + FResult.front();
}

TFriBidiShaper::TFriBidiShaper(std::u32string_view text)
    : FBegin(text.data()), FTypes(text.size()), FText(text.size()), FLevels(text.size(), 1), FProps(text.size()) {
  fribidi_get_bidi_types(FriBidiText(text), static_cast<FriBidiStrIndex>(text.size()), FTypes.data());
}

std::int64_t TFriBidiShaper::Shape(std::u32string_view paragraph) {
  const auto length = static_cast<FriBidiStrIndex>(paragraph.size());
  const FriBidiCharType* types = FTypes.data() + (paragraph.data() - FBegin);
  std::memcpy(FText.data(), paragraph.data(), paragraph.size() * sizeof(char32_t));
  fribidi_get_joining_types(FText.data(), length, FProps.data());
  fribidi_join_arabic(types, length, FLevels.data(), FProps.data());
  fribidi_shape(FRIBIDI_FLAG_SHAPE_MIRRORING | FRIBIDI_FLAG_SHAPE_ARAB_PRES | FRIBIDI_FLAG_SHAPE_ARAB_LIGA,
                FLevels.data(), length, FProps.data(), FText.data());
  return FText.front();
}

}  // namespace orv::bench
