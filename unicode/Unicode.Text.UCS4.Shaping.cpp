// Shaping: contextual Arabic forms, Hebrew letters with their points, mirrored brackets. One pass over the list, in
// place: what is stored never passes what is read.
#include <array>
#include <cstddef>
#include <utility>

#include "unicode/OrvSystem.GlobalSettings.h"
#include "unicode/Unicode.Text.UCS4.ShapingTable.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv {
namespace {

using namespace shaping;  // the table's vocabulary

// What tatweel and the zero-width joiner do. By the rules a tatweel joins to the letter before it alone, and a joiner,
// being no letter, to nothing; the corrections let each join to both sides, keeping its own code point.
struct TJoiners {
  TWord Tatweel;
  TWord ZeroWidthJoiner;
};
constexpr TWord TatweelByRules = JoinsBack;
constexpr TWord TatweelCorrected = JoinsBothKeepingForm;
constexpr TWord ZeroWidthJoinerByRules = DoesNotJoin;
constexpr TWord ZeroWidthJoinerCorrected = JoinsBothKeepingForm;

TJoiners JoinersInForce() {
  const TOrvCorrections corrections = TOrvGlobalSettings::Corrections;
  return {corrections.Contains(TOrvCorrection::TatweelJoins) ? TatweelCorrected : TatweelByRules,
          corrections.Contains(TOrvCorrection::ZwjJoins) ? ZeroWidthJoinerCorrected : ZeroWidthJoinerByRules};
}

constexpr bool IsVowelMark(UCS4Char c) {
  return c >= 0x64C && c <= 0x650;
}

constexpr UCS4Char FirstAlef = 0x622, LastAlef = 0x627;
constexpr auto LamAlefForms = [] {
  std::array<std::uint16_t, LastAlef - FirstAlef + 1> forms{};
  for (const TLamAlef& ligature : LamAlefs) forms[ligature.Alef - FirstAlef] = ligature.Form;
  return forms;
}();

// The form of lam and this alef, or 0 for anything else.
constexpr UCS4Char LamAlefForm(UCS4Char alef) {
  return alef >= FirstAlef && alef <= LastAlef ? LamAlefForms[alef - FirstAlef] : 0;
}

constexpr bool IsHebrew(UCS4Char c) {
  return c >= 0x591 && c < 0x600;
}

constexpr std::uint32_t FirstHebrewLetter = 0x5D0, HebrewLetterCount = 27;
constexpr std::uint32_t FirstFoldedPoint = 0x5B7, FoldedPointCount = 12;

// By point and letter, the form of both, or 0.
constexpr auto HebrewFolds = [] {
  std::array<std::array<std::uint16_t, HebrewLetterCount>, FoldedPointCount> folds{};
  for (const THebrewPair& pair : HebrewPairs)
    folds[pair.Point - FirstFoldedPoint][pair.Letter - FirstHebrewLetter] = pair.Form;
  return folds;
}();

// An element about to be stored: its form and the word of its joining.
struct TElement {
  UCS4Char Form;
  TWord Joining;
};

// The state of a stretch on the fast road. The prior element is held back until the letter behind it is known, so that
// each is stored once; and whether two join is computed, not branched on, for it is as good as random to a predictor.
struct TStretch {
  const UCS4Char* Read;
  const UCS4Char* Last;  // the list's last element
  UCS4Char* Stored;
  UCS4Char* PriorPlace;  // where the last element that is not transparent belongs
  UCS4Char Held;         // that element, as far as it is known
  TWord Prior;           // its word
  TWord Current;         // the word of the element at Read

  // Four elements at once. False, with nothing done, when one of them needs care or too few are left.
  bool ShapeFour() {
    if (Last - Read < 4) return false;
    const UCS4Char c0 = Read[0], c1 = Read[1], c2 = Read[2], c3 = Read[3];
    const TWord w0 = Current, w1 = Word(c1), w2 = Word(c2), w3 = Word(c3), w4 = Word(Read[4]);
    const TWord p0 = Pair(Prior, w0), p1 = Pair(w0, w1), p2 = Pair(w1, w2), p3 = Pair(w2, w3), p4 = Pair(w3, w4);
    const TWord care = ((w0 | w1 | w2 | w3) & (Special | Transparent)) | ((p1 | p2 | p3 | p4) & LamFollower);
    if (care != 0) return false;
    *PriorPlace = Held + 2 * (p0 & JoinsBack);
    Stored[0] = Form(c0, w0) + (p0 & JoinsBack) + 2 * (p1 & JoinsBack);
    Stored[1] = Form(c1, w1) + (p1 & JoinsBack) + 2 * (p2 & JoinsBack);
    Stored[2] = Form(c2, w2) + (p2 & JoinsBack) + 2 * (p3 & JoinsBack);
    Held = Form(c3, w3) + (p3 & JoinsBack);
    PriorPlace = Stored + 3;
    Prior = w3;
    Current = w4;
    Stored += 4;
    Read += 4;
    return true;
  }

  // One element, or a lam and its alef. False, with nothing done, when it needs more care than that or is the last one.
  bool ShapeOne() {
    if (Read >= Last) return false;
    TWord behind = Word(Read[1]);
    UCS4Char form = Form(*Read, Current);
    if ((Current & (Special | Transparent)) == 0) {
      if ((Pair(Current, behind) & LamFollower) != 0) {
        const UCS4Char ligature = LamAlefForm(Read[1]);
        if (ligature == 0 || Read + 1 == Last) return false;
        form = ligature;
        Current = JoinsRight;
        behind = Word(*(++Read + 1));
      }
      const TWord joined = Pair(Prior, Current) & JoinsBack;
      *PriorPlace = Held + 2 * joined;
      Held = form + joined;
      PriorPlace = Stored++;
      Prior = Current;
    } else {
      if ((Current & Special) != 0) return false;
      *Stored++ = form;
    }
    Current = behind;
    ++Read;
    return true;
  }
};

// The pass over one list.
class TShaper {
 public:
  TShaper(std::span<UCS4Char> list, const TJoiners& joiners)
      : FText(list.data()), FCount(list.size()), FJoiners(joiners) {}

  // Shapes the list and answers how many elements are left.
  std::size_t Run();

 private:
  void ShapePlainStretch();
  void ShapeHebrewStretch();
  void ShapeOne();
  void Store(TElement element);

  TElement ShapeSpecial(UCS4Char c);
  TElement ShapeShadda();
  TElement ShapeLam();
  TElement ShapeHebrewPoint(UCS4Char point);
  TElement ShapeDagesh();
  bool DoesNotJoinAhead(std::size_t distance) const;

  UCS4Char Ahead(std::size_t distance) const { return FRead + distance < FCount ? FText[FRead + distance] : 0; }
  UCS4Char LastStored() const { return FStored > 0 ? FText[FStored - 1] : 0; }

  UCS4Char* const FText;
  const std::size_t FCount;
  const TJoiners FJoiners;
  std::size_t FRead = 0;    // the next element to read
  std::size_t FStored = 0;  // how many elements are kept so far
  // The last stored element that joining does not look through, and its place.
  TWord FPrior = DoesNotJoin;
  std::size_t FPriorPlace = 0;
};

std::size_t TShaper::Run() {
  while (FRead < FCount) {
    if (IsHebrew(FText[FRead])) {
      ShapeHebrewStretch();
    } else {
      ShapePlainStretch();
      if (FRead < FCount && !IsHebrew(FText[FRead])) ShapeOne();
    }
  }
  return FStored;
}

// The fast road, for everything that needs no more than joining, marks and lam-alefs. The first element that needs more
// ends it, and so does the last one of the list, which has none behind it.
void TShaper::ShapePlainStretch() {
  if (FStored == 0 || Forward(FPrior) > TakesNextForm) return;
  TStretch stretch{FText + FRead, FText + FCount - 1, FText + FStored, FText + FPriorPlace, FText[FPriorPlace],
                   FPrior,        Word(FText[FRead])};
  bool isOpen = true;
  while (isOpen) {
    while (stretch.ShapeFour()) {
    }
    for (int i = 0; i < 4 && isOpen; ++i) isOpen = stretch.ShapeOne();
  }
  *stretch.PriorPlace = stretch.Held;
  FRead = static_cast<std::size_t>(stretch.Read - FText);
  FStored = static_cast<std::size_t>(stretch.Stored - FText);
  FPrior = stretch.Prior;
  FPriorPlace = static_cast<std::size_t>(stretch.PriorPlace - FText);
}

// Nothing below the Arabic block joins, and only Hebrew points have rules of their own there.
void TShaper::ShapeHebrewStretch() {
  for (; FRead < FCount && FText[FRead] < FirstArabic;) {
    const UCS4Char c = FText[FRead++];
    const TWord word = Table[c];
    const TElement element = (word & Special) == 0 ? TElement{Form(c, word), word}
                             : c == Dagesh         ? ShapeDagesh()
                                                   : ShapeHebrewPoint(c);
    FText[FStored++] = element.Form;
  }
  FPrior = DoesNotJoin;
  FPriorPlace = FStored - 1;
}

void TShaper::ShapeOne() {
  const UCS4Char c = FText[FRead++];
  const TWord word = Word(c);
  const bool isSpecial = (word & Special) != 0 || (Pair(word, Word(Ahead(0))) & LamFollower) != 0;
  Store(isSpecial ? ShapeSpecial(c) : TElement{Form(c, word), word});
}

// Joins an element to the one before it, where both can, and stores it.
void TShaper::Store(TElement element) {
  const TWord forward = Forward(FPrior) & (0U - (element.Joining & JoinsBack));
  FText[FPriorPlace] += ForwardDelta[forward];
  FText[FStored] = element.Form + (static_cast<TWord>(forward != 0) & (element.Joining >> TakesFinalShift));
  const bool looksThrough = (element.Joining & Transparent) != 0;
  FPrior = looksThrough ? FPrior : element.Joining;
  FPriorPlace = looksThrough ? FPriorPlace : FStored;
  ++FStored;
}

// The elements that have a rule of their own.
TElement TShaper::ShapeSpecial(UCS4Char c) {
  switch (c) {
    case Shadda:
      return ShapeShadda();
    case LamLetter:
      return ShapeLam();
    case Tatweel:
      return {c, FJoiners.Tatweel};
    case ZeroWidthJoiner:
      return {c, FJoiners.ZeroWidthJoiner};
    default:
      return {Form(c, Word(c)), Word(c)};
  }
}

// A shadda and a vowel mark beside it, on either side, are drawn as one; so are a shadda and a superscript alef. Of two
// superscript alefs around it, the one behind is taken.
TElement TShaper::ShapeShadda() {
  constexpr UCS4Char alone = 0xFE7C, withVowelMark = 0xFC5E, withAlef = 0xFC63;
  constexpr UCS4Char firstMarkForm = 0xFE72, lastMarkForm = 0xFE7A;
  const UCS4Char next = Ahead(0);
  const UCS4Char last = LastStored();
  if (FStored == 0) return {alone, Transparent};
  if (IsVowelMark(next)) {
    ++FRead;
    return {withVowelMark + (next - 0x64C), Transparent};
  }
  if (last >= firstMarkForm && last <= lastMarkForm) {
    --FStored;
    return {withVowelMark + (last - firstMarkForm) / 2, Transparent};
  }
  if (next == SuperscriptAlef) {
    ++FRead;
    return {withAlef, Transparent};
  }
  if (last == SuperscriptAlef) {
    --FStored;
    return {withAlef, Transparent};
  }
  return {alone, Transparent};
}

// A lam before an alef, with or without a vowel mark between them, or at the head of the name of God.
TElement TShaper::ShapeLam() {
  constexpr UCS4Char heh = 0x647, nameOfGod = 0xFDF2;
  if (IsVowelMark(Ahead(0)) && LamAlefForm(Ahead(1)) != 0)
    std::swap(FText[FRead], FText[FRead + 1]);  // the mark now stands behind both
  if (const UCS4Char form = LamAlefForm(Ahead(0)); form != 0) {
    ++FRead;
    return {form, JoinsRight};
  }
  if (Ahead(0) == LamLetter && Ahead(1) == Shadda && Ahead(2) == heh && DoesNotJoinAhead(3)) {
    FRead += 3;
    return {nameOfGod, DoesNotJoin};
  }
  return {Form(LamLetter, Table[LamLetter]), JoinsBoth};
}

// Whether joining ends at the element that far ahead, or at the list's end.
bool TShaper::DoesNotJoinAhead(std::size_t distance) const {
  const UCS4Char c = Ahead(distance);
  const TWord word = c == ZeroWidthJoiner ? FJoiners.ZeroWidthJoiner : Word(c);
  return (word & (JoinsBack | Transparent)) == 0;
}

// A point folds into the letter stored last where the two have one form. The letter's place is then given up and
// stored anew with that form.
TElement TShaper::ShapeHebrewPoint(UCS4Char point) {
  const std::uint32_t letter = LastStored() - FirstHebrewLetter;
  const UCS4Char form = letter < HebrewLetterCount ? HebrewFolds[point - FirstFoldedPoint][letter] : 0;
  if (form == 0) return {point, DoesNotJoin};
  --FStored;
  return {form, DoesNotJoin};
}

// A dagesh folds into a shin with its dot, before or behind it. Behind anything else it takes that element's place:
// the letter is lost.
TElement TShaper::ShapeDagesh() {
  constexpr UCS4Char shin = 0x5E9, shinDot = 0x5C1, sinDot = 0x5C2;
  constexpr UCS4Char shinWithShinDot = 0xFB2A, shinWithSinDot = 0xFB2B, shinWithDageshAndShinDot = 0xFB2C;
  if (FStored == 0) return {Dagesh, DoesNotJoin};
  const UCS4Char last = LastStored();
  const UCS4Char next = Ahead(0);
  --FStored;
  if (last == shin && (next == shinDot || next == sinDot)) {
    ++FRead;
    return {shinWithDageshAndShinDot + (next - shinDot), DoesNotJoin};
  }
  if (last == shinWithShinDot || last == shinWithSinDot) return {last + 2, DoesNotJoin};
  return {Dagesh, DoesNotJoin};
}

}  // namespace

std::size_t TUCS4ListHelper::ShapeInPlace(std::span<UCS4Char> list) {
  return TShaper(list, JoinersInForce()).Run();
}

void TUCS4ListHelper::ChangeToComplexCharacters(TUCS4List& list, bool /*flag*/) {
  list.resize(ShapeInPlace(list));
}

}  // namespace orv
