// The names under which enumeration values travel: those of the code.
#pragma once

#include "tools/orv/eval/Arguments.h"
#include "unicode/OrvSystem.GlobalSettings.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv::eval {

inline constexpr TNamed<TOrvGlobalSettings::TMathOrder> MathOrderNames[] = {
    {"ArabicRightToLeft", TOrvGlobalSettings::TMathOrder::ArabicRightToLeft},
    {"LeftToRight", TOrvGlobalSettings::TMathOrder::LeftToRight}};

inline constexpr TNamed<TOrvGlobalSettings::TArabicDigitType> DigitTypeNames[] = {
    {"ArabicDigitType1", TOrvGlobalSettings::TArabicDigitType::ArabicDigitType1},
    {"ArabicDigitType2", TOrvGlobalSettings::TArabicDigitType::ArabicDigitType2},
    {"Latin", TOrvGlobalSettings::TArabicDigitType::Latin}};

inline constexpr TNamed<TOrvGlobalOption> OptionNames[] = {
    {"ReplaceQuoteWithPrimeInMeasures", TOrvGlobalOption::ReplaceQuoteWithPrimeInMeasures},
    {"MeasureSignsInRightSideOfDigits", TOrvGlobalOption::MeasureSignsInRightSideOfDigits},
    {"PrimeInRightSideOfDigits", TOrvGlobalOption::PrimeInRightSideOfDigits},
    {"PercentInRightSideOfDigits", TOrvGlobalOption::PercentInRightSideOfDigits},
    {"DigitsBeforeLatinAreLatin", TOrvGlobalOption::DigitsBeforeLatinAreLatin},
    {"EquationBeforeLatinIsLatin", TOrvGlobalOption::EquationBeforeLatinIsLatin},
    {"NeutralsFollowStickedStrongDirections", TOrvGlobalOption::NeutralsFollowStickedStrongDirections},
    {"RTLLineIndexOrder", TOrvGlobalOption::RTLLineIndexOrder},
    {"RTLDate", TOrvGlobalOption::RTLDate},
    {"AcceptsLineFeedAsParagraphSeparator", TOrvGlobalOption::AcceptsLineFeedAsParagraphSeparator},
    {"WeakFollowLineDirection", TOrvGlobalOption::WeakFollowLineDirection}};

inline constexpr TNamed<TOrvCorrection> CorrectionNames[] = {
    {"OwnDirection", TOrvCorrection::OwnDirection},
    {"LineEnds", TOrvCorrection::LineEnds},
    {"LineIndex", TOrvCorrection::LineIndex},
    {"TatweelJoins", TOrvCorrection::TatweelJoins},
    {"ZwjJoins", TOrvCorrection::ZwjJoins},
    {"SourceUnits", TOrvCorrection::SourceUnits},
    {"DeleteUnits", TOrvCorrection::DeleteUnits},
    {"LigatureHit", TOrvCorrection::LigatureHit},
    {"HitPlace", TOrvCorrection::HitPlace},
    {"RightClip", TOrvCorrection::RightClip},
    {"KeepOneRun", TOrvCorrection::KeepOneRun},
    {"VisualOrders", TOrvCorrection::VisualOrders},
    {"EmptyRun", TOrvCorrection::EmptyRun},
    {"EndRegion", TOrvCorrection::EndRegion},
    {"SelectionOrder", TOrvCorrection::SelectionOrder},
    {"FirstGlyph", TOrvCorrection::FirstGlyph},
    {"TrimLine", TOrvCorrection::TrimLine},
    {"TabSplit", TOrvCorrection::TabSplit},
    {"TabTags", TOrvCorrection::TabTags},
    {"TabMeasure", TOrvCorrection::TabMeasure},
    {"TabHeight", TOrvCorrection::TabHeight},
    {"PixelScroll", TOrvCorrection::PixelScroll},
    {"CaretSide", TOrvCorrection::CaretSide},
    {"Direction", TOrvCorrection::Direction},
    {"NeutralDirection", TOrvCorrection::NeutralDirection},
    {"SelectionRegions", TOrvCorrection::SelectionRegions},
    {"Words", TOrvCorrection::Words},
    {"InsertRoom", TOrvCorrection::InsertRoom},
    {"FreshCaret", TOrvCorrection::FreshCaret},
    {"LongPress", TOrvCorrection::LongPress},
    {"Handles", TOrvCorrection::Handles},
    {"PasswordKeys", TOrvCorrection::PasswordKeys},
    {"Composition", TOrvCorrection::Composition},
    {"LineBreaks", TOrvCorrection::LineBreaks},
    {"AutoDirectionAlways", TOrvCorrection::AutoDirectionAlways}};

inline constexpr TNamed<TOrvDirectionSelection> DirectionSelectionNames[] = {
    {"Default", TOrvDirectionSelection::Default},
    {"ByFormBidiMode", TOrvDirectionSelection::ByFormBidiMode},
    {"ByTextDiretion", TOrvDirectionSelection::ByTextDiretion},
    {"ByTextAlignment", TOrvDirectionSelection::ByTextAlignment}};

inline constexpr TNamed<TOrvFlasherOption> FlasherOptionNames[] = {
    {"Default", TOrvFlasherOption::Default},
    {"AlwaysSingleFlasher", TOrvFlasherOption::AlwaysSingleFlasher},
    {"DoubleFlasherInRTLMode", TOrvFlasherOption::DoubleFlasherInRTLMode}};

inline constexpr TNamed<TOrvCaretPositioningOption> CaretPositioningNames[] = {
    {"Default", TOrvCaretPositioningOption::Default},
    {"NaturalView", TOrvCaretPositioningOption::NaturalView},
    {"ByCharacter", TOrvCaretPositioningOption::ByCharacter}};

inline constexpr TNamed<TOrvTextOverrunOption> TextOverrunNames[] = {
    {"FollowCaret", TOrvTextOverrunOption::FollowCaret}, {"ControlByCaret", TOrvTextOverrunOption::ControlByCaret}};

inline constexpr TNamed<TParagraphBidi> ParagraphNames[] = {{"LeftToRight", TParagraphBidi::LeftToRight},
                                                            {"RightToLeft", TParagraphBidi::RightToLeft},
                                                            {"AutoLeftToRight", TParagraphBidi::AutoLeftToRight},
                                                            {"AutoRightToLeft", TParagraphBidi::AutoRightToLeft},
                                                            {"Neutral", TParagraphBidi::Neutral}};

inline constexpr TNamed<TBidi> BidiNames[] = {{"LeftToRight", TBidi::LeftToRight},
                                              {"RightToLeft", TBidi::RightToLeft},
                                              {"ParagraphSeparator", TBidi::ParagraphSeparator}};

using TBidiType = TDirectiveChars::TBidiType;
inline constexpr TNamed<TBidiType> BidiTypeNames[] = {{"Neutral", TBidiType::Neutral},
                                                      {"LTR", TBidiType::LTR},
                                                      {"RTL", TBidiType::RTL},
                                                      {"ArabicDigit", TBidiType::ArabicDigit}};

}  // namespace orv::eval
