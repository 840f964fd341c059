#include "tests/unicode/support/PlainTransforms.h"

#include <map>
#include <sstream>
#include <string>
#include <utility>

#include "rtl/Unicode.h"
#include "tests/unicode/support/PlainChars.h"
#include "unicode/OrvSystem.GlobalSettings.h"

namespace orv::plain {
namespace {

// Code point, joining type, isolated form. 01 joins to nothing, 02 to the letter before it, 03 is the tatweel, 04 joins
// on both sides, 24 too but with two forms elsewhere, FF is a mark that joining looks through.
constexpr const char* JoiningTable = R"(
0621 01 FE80  0622 02 FE81  0623 02 FE83  0624 02 FE85  0625 02 FE87  0626 04 FE89  0627 02 FE8D  0628 04 FE8F
0629 02 FE93  062A 04 FE95  062B 04 FE99  062C 04 FE9D  062D 04 FEA1  062E 04 FEA5  062F 02 FEA9  0630 02 FEAB
0631 02 FEAD  0632 02 FEAF  0633 04 FEB1  0634 04 FEB5  0635 04 FEB9  0636 04 FEBD  0637 04 FEC1  0638 04 FEC5
0639 04 FEC9  063A 04 FECD  0640 03 0640  0641 04 FED1  0642 04 FED5  0643 04 FED9  0644 04 FEDD  0645 04 FEE1
0646 04 FEE5  0647 04 FEE9  0648 02 FEED  0649 24 FEEF  064A 04 FEF1
064B FF FE70  064C FF FE72  064D FF FE74  064E FF FE76  064F FF FE78  0650 FF FE7A  0651 FF FE7C  0652 FF FE7E
0653 FF 0653  0654 FF 0654  0655 FF 0655  0656 FF 0656  0657 FF 0657  0658 FF 0658  0659 FF 0659  065A FF 065A
065B FF 065B  065C FF 065C  065D FF 065D  065E FF 065E  065F FF 065F  0670 FF 0670
06D6 FF 06D6  06D7 FF 06D7  06D8 FF 06D8  06D9 FF 06D9  06DA FF 06DA  06DB FF 06DB  06DC FF 06DC  06DD FF 06DD
06DF FF 06DF  06E0 FF 06E0  06E1 FF 06E1  06E2 FF 06E2  06E3 FF 06E3  06E4 FF 06E4  06E5 FF 06E5  06E6 FF 06E6
06E7 FF 06E7  06E8 FF 06E8  06EA FF 06EA  06EB FF 06EB  06EC FF 06EC  06ED FF 06ED
0671 01 FB50  0679 04 FB66  067A 04 FB5E  067B 04 FB52  067E 04 FB56  067F 04 FB62  0680 04 FB5A  0683 04 FB76
0684 04 FB72  0686 04 FB7A  0687 04 FB7E  0688 02 FB88  068C 02 FB84  068D 02 FB82  068E 02 FB86  0691 02 FB8C
0698 02 FB8A  06A4 04 FB6A  06A6 04 FB6E  06A9 04 FB8E  06AD 04 FBD3  06AF 04 FB92  06B1 04 FB9A  06B3 04 FB96
06BA 02 FB9E  06BB 04 FBA0  06BE 04 FBAA  06C0 02 FBA4  06C1 04 FBA6  06C5 02 FBE0  06C6 02 FBD9  06C7 02 FBD7
06C8 02 FBDB  06C9 02 FBE2  06CB 02 FBDE  06CC 04 FBFC  06D0 04 FBE4  06D2 02 FBAE  06D3 02 FBB0  06D5 02 FEE9
)";

struct TRow {
  unsigned Type;
  std::uint32_t Form;
};

const std::map<std::uint32_t, TRow>& Rows() {
  static const std::map<std::uint32_t, TRow> rows = [] {
    std::map<std::uint32_t, TRow> made;
    std::istringstream in(JoiningTable);
    std::uint32_t codePoint = 0;
    TRow row{};
    while (in >> std::hex >> codePoint >> row.Type >> row.Form) made[codePoint] = row;
    return made;
  }();
  return rows;
}

bool IsArabic(std::uint32_t c) {
  return c >= 0x620 && c <= 0x6ED;
}

TRow RowOf(std::uint32_t c) {
  const auto found = Rows().find(c);
  return found != Rows().end() ? found->second : TRow{0x01, c};
}

bool IsAsciiDigit(std::uint32_t c) {
  return c >= '0' && c <= '9';
}
bool IsVowelMark(std::uint32_t c) {
  return c >= 0x64C && c <= 0x650;
}

std::uint32_t LamAlef(std::uint32_t alef) {
  switch (alef) {
    case 0x622:
      return 0xFEF5;
    case 0x623:
      return 0xFEF7;
    case 0x625:
      return 0xFEF9;
    case 0x627:
      return 0xFEFB;
    default:
      return 0;
  }
}

std::uint32_t Mirror(std::uint32_t c) {
  switch (c) {
    case '(':
      return ')';
    case ')':
      return '(';
    case '[':
      return ']';
    case ']':
      return '[';
    case '{':
      return '}';
    case '}':
      return '{';
    case 0xAB:
      return 0xBB;
    case 0xBB:
      return 0xAB;
    case 0x8B:
      return 0x9B;
    case 0x9B:
      return 0x8B;
    default:
      return 0;
  }
}

std::uint32_t HebrewPair(std::uint32_t letter, std::uint32_t point) {
  static const std::map<std::pair<std::uint32_t, std::uint32_t>, std::uint32_t> pairs = {
      {{0x5D0, 0x5B7}, 0xFB2E}, {{0x5D0, 0x5B8}, 0xFB2F}, {{0x5D1, 0x5BF}, 0xFB4C}, {{0x5D5, 0x5B9}, 0xFB4B},
      {{0x5DB, 0x5BF}, 0xFB4D}, {{0x5E4, 0x5BF}, 0xFB4E}, {{0x5E9, 0x5C1}, 0xFB2A}, {{0x5E9, 0x5C2}, 0xFB2B}};
  const auto found = pairs.find({letter, point});
  return found != pairs.end() ? found->second : 0;
}

class TShaping {
 public:
  explicit TShaping(TCodePoints list) : In(std::move(list)) {
    const TOrvCorrections corrections = TOrvGlobalSettings::Corrections;
    TatweelJoins = corrections.Contains(TOrvCorrection::TatweelJoins);
    ZwjJoins = corrections.Contains(TOrvCorrection::ZwjJoins);
  }

  TCodePoints Run() {
    while (At < In.size()) Step(In[At]);
    return std::move(Out);
  }

 private:
  // A type of this oracle alone: joins on both sides and keeps its code point.
  static constexpr unsigned KeepsForm = 0x104;

  void Step(std::uint32_t c) {
    const bool isFirst = At == 0;
    ++At;
    if (Mirror(c) != 0) return StorePlain(Mirror(c));
    if (c >= 0x591 && c <= 0x5CF && c != 0x5BC) return HebrewPoint(c);
    if (c == 0x5BC) return Dagesh();
    if (c == 0x200D && ZwjJoins) return Join(c, KeepsForm);
    if (!IsArabic(c)) return StorePlain(c);
    if (c == 0x651 && !isFirst) return Join(Shadda(), 0xFF);
    if (c == 0x644) return Lam();
    if (c == 0x640 && TatweelJoins) return Join(c, KeepsForm);
    Join(RowOf(c).Form, RowOf(c).Type);
  }

  void HebrewPoint(std::uint32_t c) {
    const std::uint32_t form = Out.empty() ? 0 : HebrewPair(Out.back(), c);
    if (form == 0) return StorePlain(c);
    Out.back() = form;
    Prior = 0x01;
  }

  void Dagesh() {
    if (Out.empty()) return StorePlain(0x5BC);
    Prior = 0x01;
    if (Out.back() == 0x5E9 && (Next() == 0x5C1 || Next() == 0x5C2)) {
      Out.back() = Next() + 0xF56B;
      ++At;
    } else if (Out.back() == 0xFB2A || Out.back() == 0xFB2B) {
      Out.back() += 2;
    } else {
      Out.back() = 0x5BC;
    }
  }

  std::uint32_t Shadda() {
    if (IsVowelMark(Next())) return In[At++] + 0xF612;
    if (Out.back() >= 0xFE72 && Out.back() <= 0xFE7A) {
      const std::uint32_t form = (Out.back() - 0xFE72) / 2 + 0xFC5E;
      Out.pop_back();
      return form;
    }
    if (Next() == 0x670) {
      ++At;
      return 0xFC63;
    }
    if (Out.back() == 0x670) {
      Out.pop_back();
      return 0xFC63;
    }
    return 0xFE7C;
  }

  void Lam() {
    if (IsVowelMark(Next()) && LamAlef(Next(1)) != 0) std::swap(In[At], In[At + 1]);
    if (const std::uint32_t form = LamAlef(Next()); form != 0) {
      ++At;
      return Join(form, 0x02);
    }
    if (Next() == 0x644 && Next(1) == 0x651 && Next(2) == 0x647 && DoesNotJoin(Next(3))) {
      At += 3;
      return Join(0xFDF2, 0x01);
    }
    Join(RowOf(0x644).Form, RowOf(0x644).Type);
  }

  bool DoesNotJoin(std::uint32_t c) const {
    if (c == 0x200D && ZwjJoins) return false;
    return !IsArabic(c) || RowOf(c).Type == 0x01;
  }

  void Join(std::uint32_t c, unsigned type) {
    const unsigned low = type & 7;
    const bool canJoin = low == 2 || low == 3 || low == 4;
    const bool takesFinal = type != 0x03 && type != KeepsForm;
    if (canJoin && (Prior & 7) == 4) {
      if (Prior == 0x04) Out[PriorPlace] += 2;
      if (Prior == 0x24 && Out[PriorPlace] >= 0xFEEF) Out[PriorPlace] -= 775;
      if (takesFinal) ++c;
    }
    Out.push_back(c);
    if (!canJoin && type == 0xFF) return;
    Prior = type;
    PriorPlace = Out.size() - 1;
  }

  void StorePlain(std::uint32_t c) {
    Out.push_back(c);
    Prior = 0x01;
  }

  std::uint32_t Next(std::size_t distance = 0) const { return At + distance < In.size() ? In[At + distance] : 0; }

  TCodePoints In, Out;
  std::size_t At = 0;
  unsigned Prior = 0x01;
  std::size_t PriorPlace = 0;
  bool TatweelJoins = false, ZwjJoins = false;
};

}  // namespace

TCodePoints ChangedToArabicDigits(TCodePoints list) {
  using TDigits = TOrvGlobalSettings::TArabicDigitType;
  if (TOrvGlobalSettings::ArabicDigitType == TDigits::Latin) return list;
  for (const std::uint32_t c : list)
    if (rtl::IsLetter(c)) {
      if (c > 0xFFFF || !IsRTL(static_cast<char16_t>(c))) return list;
      break;
    }
  const std::uint32_t base = TOrvGlobalSettings::ArabicDigitType == TDigits::ArabicDigitType1 ? 0x660 : 0x6F0;
  for (std::size_t i = 0; i < list.size();) {
    const bool wasDigit = IsAsciiDigit(list[i]);
    if (wasDigit) list[i] = base + list[i] - '0';
    ++i;
    if (i == list.size() || !wasDigit) continue;
    if (list[i] == '\'') {
      list[i++] = 0x66C;
    } else if (list[i] == '%') {
      list[i++] = 0x66A;
    } else if (list[i] == '.') {
      if (i + 1 < list.size() && IsAsciiDigit(list[i + 1])) list[i] = 0x66B;
      ++i;
    }
  }
  return list;
}

TCodePoints Shaped(TCodePoints list) {
  return TShaping(std::move(list)).Run();
}

TCodePoints WithPrimes(TCodePoints list) {
  for (std::size_t i = 1; i < list.size(); ++i)
    if (rtl::IsNumber(list[i - 1])) {
      if (list[i] == '"') list[i] = 0x2033;
      if (list[i] == '\'') list[i] = 0x2032;
    }
  return list;
}

}  // namespace orv::plain
