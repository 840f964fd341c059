// The libraries that people use for this work today, each behind one call per paragraph. Objects and buffers are made
// once and used again, as a program that cares for speed would.
#pragma once

#include <fribidi/fribidi.h>
#include <unicode/ubidi.h>

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace orv::bench {

enum class TBase : std::uint8_t { FirstStrong, LeftToRight, RightToLeft };

// ICU: ubidi_setPara, then every visual and every logical run.
class TIcuBidi {
 public:
  // How the logical runs are asked for: each by a call, the usual way, or read off the levels. A call searches all runs
  // from the first, so on one long paragraph only the levels keep the cost linear.
  enum class TLogicalRuns : std::uint8_t { ByCall, ByLevels };

  explicit TIcuBidi(TLogicalRuns logicalRuns);

  // A checksum over the runs, so that no part of the work can be left out.
  std::int64_t Split(std::u16string_view paragraph, TBase base);

 private:
  struct TClose {
    void operator()(UBiDi* bidi) const { ubidi_close(bidi); }
  };
  std::int64_t WalkVisualRuns();
  std::int64_t WalkLogicalRuns(std::int32_t length);
  std::int64_t WalkLevels(std::int32_t length);

  std::unique_ptr<UBiDi, TClose> FBidi;
  TLogicalRuns FLogicalRuns;
};

// FriBidi: types, bracket types, embedding levels, and the visual order of one line.
class TFriBidi {
 public:
  explicit TFriBidi(std::size_t longest);

  std::int64_t Split(std::u32string_view paragraph, TBase base);

 private:
  std::vector<FriBidiCharType> FTypes;
  std::vector<FriBidiBracketType> FBrackets;
  std::vector<FriBidiLevel> FLevels;
  std::vector<FriBidiStrIndex> FMap;
};

enum class TShapeWork : std::uint8_t { LettersAndDigits, DigitsOnly };

// ICU: u_shapeArabic into a second buffer, letters to their forms and ASCII digits to those from U+0660.
class TIcuShaper {
 public:
  explicit TIcuShaper(std::size_t longest);

  std::int64_t Shape(std::u16string_view paragraph, TShapeWork work);

 private:
  std::vector<char16_t> FResult;
};

// FriBidi: joining types, joining, forms, ligatures and mirrors in a copy of the text. It converts no digits. Its bidi
// types and levels (all right-to-left) are inputs, known beforehand.
class TFriBidiShaper {
 public:
  // text holds every paragraph that will be shaped.
  explicit TFriBidiShaper(std::u32string_view text);

  std::int64_t Shape(std::u32string_view paragraph);

 private:
  const char32_t* FBegin;
  std::vector<FriBidiCharType> FTypes;
  std::vector<FriBidiChar> FText;
  std::vector<FriBidiLevel> FLevels;
  std::vector<FriBidiArabicProp> FProps;
};

}  // namespace orv::bench
