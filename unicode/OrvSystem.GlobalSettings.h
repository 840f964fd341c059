// The process-wide switches that tune the text engine, the presentation transforms and the caret of the edit controls.
//
// There is one set per process. Fields are read without a lock: change them on the main thread, between calls. A change
// takes effect at the next split or layout; nothing is notified.
#pragma once

#include <cstdint>

#include "rtl/Sets.h"

namespace orv {

// Switches of the engine, by their bit number in TOrvGlobalOptions.
enum class TOrvGlobalOption : std::uint8_t {
  ReplaceQuoteWithPrimeInMeasures = 0,  // the layout runs the prime replacement on each run
  MeasureSignsInRightSideOfDigits = 1,  // tests the digits of right-to-left text for a measure ("5 km")
  PrimeInRightSideOfDigits = 2,         // the same test, and a quote right behind a number passes it
  PercentInRightSideOfDigits = 3,       // a percent sign right behind a number passes that test; alone it has no effect
  DigitsBeforeLatinAreLatin = 4,        // digits that run into a Latin word are left-to-right
  EquationBeforeLatinIsLatin = 5,       // vocabulary only: the engine never tests it
  NeutralsFollowStickedStrongDirections = 6,  // vocabulary only: the engine never tests it
  RTLLineIndexOrder = 7,                      // a number that opens a line and has a list mark behind it stays with the
                                              // right-to-left text; by the plain rules only together with
                                              // DigitsBeforeLatinAreLatin (TOrvCorrection::LineIndex lifts that)
  RTLDate = 8,                              // tests digits for a date; the test never passes with an ordinary separator
  AcceptsLineFeedAsParagraphSeparator = 9,  // vocabulary only: CR and LF always end a paragraph
  WeakFollowLineDirection = 10,             // vocabulary only: the engine never tests it
};
using TOrvGlobalOptions = rtl::TSet<TOrvGlobalOption, std::uint16_t>;

// Where a rule, followed to the letter, would show a user something plainly wrong, a correction stands over it. All are
// in force by default. docs/quirks.md shows each with an example.
enum class TOrvCorrection : std::uint8_t {
  OwnDirection,  // no run holds a letter of the other direction
  LineEnds,      // a separator entry holds the line end and nothing else
  LineIndex,     // RTLLineIndexOrder acts by itself
  TatweelJoins,  // a tatweel joins to both sides
  ZwjJoins,      // U+200D joins like a dual-joining letter without a form

  SourceUnits,     // positions count the units that each atom stands for
  DeleteUnits,     // a deleted ligature counts its source units
  LigatureHit,     // the far end of a ligature answers its far end
  HitPlace,        // hits look for lines where they are drawn
  RightClip,       // a line cut on the right loses whole letters from its far side
  KeepOneRun,      // clipping leaves one run in a line and one line in a frame
  VisualOrders,    // a visual order maps visual places to items everywhere
  EmptyRun,        // an empty run beside others has no width and takes no clicks
  EndRegion,       // the end of every text has a caret box
  SelectionOrder,  // a selection colours what it holds
  FirstGlyph,      // the first glyph of a run wraps too
  TrimLine,        // a line is cut once, with one ellipsis at its reading end
  TabSplit,        // what follows a leading tab stands behind it in both orders
  TabTags,         // the width of a tab moves with it
  TabMeasure,      // measuring leaves tabs alone
  TabHeight,       // a tab is as high as a blank

  PixelScroll,          // a box scrolls by pixels, and its whole text stands in it
  CaretSide,            // the caret stands behind the character before it
  Direction,            // a box's direction follows its alignment, and never sticks
  NeutralDirection,     // a text without letters has the box's direction
  SelectionRegions,     // a selection is filled where its characters are drawn
  Words,                // a mark or joiner belongs to the word before it
  InsertRoom,           // what is inserted is cut to the room that is left
  FreshCaret,           // the caret follows what the application changes
  LongPress,            // a long press drops the selection
  Handles,              // a selection's handles do not cross
  PasswordKeys,         // a password box cuts nothing and exchanges no keys
  Composition,          // a composition takes the selection's place
  LineBreaks,           // a line end becomes a blank in a single-line box
  AutoDirectionAlways,  // automatic direction looks at every text
};
using TOrvCorrections = rtl::TSet<TOrvCorrection, std::uint64_t>;
inline constexpr TOrvCorrections AllCorrections =
    TOrvCorrections::Range(TOrvCorrection::OwnDirection, TOrvCorrection::AutoDirectionAlways);

// How an editor picks its direction.
enum class TOrvDirectionSelection : std::uint8_t { Default, ByFormBidiMode, ByTextDiretion, ByTextAlignment };
enum class TOrvFlasherOption : std::uint8_t { Default, AlwaysSingleFlasher, DoubleFlasherInRTLMode };
enum class TOrvCaretPositioningOption : std::uint8_t { Default, NaturalView, ByCharacter };
enum class TOrvTextOverrunOption : std::uint8_t { FollowCaret, ControlByCaret };

// The switches of the edit controls. Only FlasherOption and CaretPositioning are read by the system; the others are
// kept for applications.
struct TOrvEditorOptions {
  TOrvDirectionSelection DirectionSelection = TOrvDirectionSelection::Default;
  TOrvFlasherOption FlasherOption = TOrvFlasherOption::Default;
  TOrvCaretPositioningOption CaretPositioning = TOrvCaretPositioningOption::Default;
  float CaretMinEdgeDistanceCoEfficient = 0.4F;  // the caret's margin as a share of the view
  TOrvTextOverrunOption TextOverrunOption = TOrvTextOverrunOption::ControlByCaret;
  char16_t PasswordChar = u'\u2022';
  std::uint32_t SelectionTextDefaultColor = 0xFFFFFFFF;  // alpha in the top byte
};

// Holder of the settings; no instance is made.
class TOrvGlobalSettings {
 public:
  TOrvGlobalSettings() = delete;

  enum class TMathOrder : std::uint8_t { ArabicRightToLeft, LeftToRight };

  // Which digits are drawn for the ASCII ones: those from U+0660, those from U+06F0, or none. It holds for runs of both
  // directions; a run whose first letter is not right-to-left keeps its digits.
  enum class TArabicDigitType : std::uint8_t { ArabicDigitType1, ArabicDigitType2, Latin };

  static inline TMathOrder EquationOrder = TMathOrder::LeftToRight;
  static inline TArabicDigitType ArabicDigitType = TArabicDigitType::ArabicDigitType1;
  static inline TOrvGlobalOptions Options;
  static inline TOrvEditorOptions EditorOptions;
  static inline TOrvCorrections Corrections = AllCorrections;

  static bool RTLMath() { return EquationOrder == TMathOrder::ArabicRightToLeft; }
  static bool ReplaceQuoteWithPrimeInMeasures() { return Has(TOrvGlobalOption::ReplaceQuoteWithPrimeInMeasures); }
  static bool MeasureSignsInRightSideOfDigits() { return Has(TOrvGlobalOption::MeasureSignsInRightSideOfDigits); }
  static bool PrimeInRightSideOfDigits() { return Has(TOrvGlobalOption::PrimeInRightSideOfDigits); }
  static bool PercentInRightSideOfDigits() { return Has(TOrvGlobalOption::PercentInRightSideOfDigits); }
  static bool DigitsBeforeLatinAreLatin() { return Has(TOrvGlobalOption::DigitsBeforeLatinAreLatin); }
  static bool EquationBeforeLatinIsLatin() { return Has(TOrvGlobalOption::EquationBeforeLatinIsLatin); }
  static bool AreNeutralsSticky() { return Has(TOrvGlobalOption::NeutralsFollowStickedStrongDirections); }
  static bool RTLLineIndexOrder() { return Has(TOrvGlobalOption::RTLLineIndexOrder); }
  static bool RTLDate() { return Has(TOrvGlobalOption::RTLDate); }
  static bool DoubleFlasher() { return EditorOptions.FlasherOption == TOrvFlasherOption::DoubleFlasherInRTLMode; }
  static bool NaturalCaretPositioning() {
    return EditorOptions.CaretPositioning == TOrvCaretPositioningOption::NaturalView;
  }

  // Whether the engine behaves just as the platform's plain rule would: RTLMath, and no option that changes how
  // directions are resolved.
  static bool OSRuleApplied() {
    constexpr TOrvGlobalOptions withoutEffect{TOrvGlobalOption::ReplaceQuoteWithPrimeInMeasures,
                                              TOrvGlobalOption::AcceptsLineFeedAsParagraphSeparator};
    return RTLMath() && (Options - withoutEffect).IsEmpty();
  }

 private:
  static bool Has(TOrvGlobalOption option) { return Options.Contains(option); }
};

}  // namespace orv
