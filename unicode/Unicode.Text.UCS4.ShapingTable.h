// The shaping table: for each code point its presentation form and how it takes part in joining, packed
// into one word, so that shaping looks a character up once. Internal to unicode/.
//
// The letters' joining types and forms follow the Arabic Presentation Forms blocks of the Unicode Standard, as far as
// these blocks have a form; letters without one keep their code point and join to nothing.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace orv::shaping {

using TWord = std::uint32_t;

// What the letter behind an element does to it when the two join: nothing, for they never do; it turns from isolated to
// initial or from final to medial; the same for U+0649, whose two forms lie elsewhere; it keeps its form.
enum TForward : TWord { NeverJoins, TakesNextForm, TakesAlefMaksuraForm, KeepsForm };
// What that adds to its code point, modulo 2^32.
inline constexpr std::uint32_t ForwardDelta[] = {0, 2, 0U - (0xFEEF - 0xFBE8), 0};

// The fields of a word. The high half holds the form that is stored, as its distance from the code point: the isolated
// form, the mirrored bracket, or the code point itself.
inline constexpr TWord JoinsBack = 1U << 0;  // joins to the letter before it
inline constexpr unsigned ForwardShift = 1;  // a TForward of two bits
inline constexpr unsigned TakesFinalShift = 3;
inline constexpr TWord TakesFinal =
    1U << TakesFinalShift;                     // is drawn in its final form, the form plus 1, when it joins back
inline constexpr TWord Transparent = 1U << 4;  // stored, but joining looks through it
inline constexpr TWord Special = 1U << 5;      // has a rule of its own
inline constexpr TWord LamFollower = 1U << 6;  // has rules of its own behind a lam
inline constexpr TWord Lam = 1U << 7;          // the bit above
inline constexpr unsigned FormShift = 16;
inline constexpr std::uint32_t FormBias = 0x20;  // keeps the distance of a bracket that mirrors downwards positive

// What two neighbours have to do with each other: JoinsBack where they join and the first takes its next form;
// LamFollower where they are a lam and its follower. The other bits mean nothing.
constexpr TWord Pair(TWord word, TWord behind) {
  return (word >> 1) & behind;
}
static_assert(JoinsBack << 1 == TWord{TakesNextForm} << ForwardShift && LamFollower << 1 == Lam);

constexpr TWord Forward(TWord word) {
  return (word >> ForwardShift) & 3U;
}
constexpr std::uint32_t Form(std::uint32_t c, TWord word) {
  return c + (word >> FormShift) - FormBias;
}

inline constexpr TWord DoesNotJoin = 0;
inline constexpr TWord JoinsRight = JoinsBack | TakesFinal;
inline constexpr TWord JoinsBoth = JoinsRight | (TWord{TakesNextForm} << ForwardShift);
inline constexpr TWord JoinsBothAlefMaksura = JoinsRight | (TWord{TakesAlefMaksuraForm} << ForwardShift);
inline constexpr TWord JoinsBothKeepingForm = JoinsBack | (TWord{KeepsForm} << ForwardShift);

inline constexpr std::uint32_t FirstArabic = 0x620;
inline constexpr std::uint32_t Shadda = 0x651;
inline constexpr std::uint32_t Tatweel = 0x640;
inline constexpr std::uint32_t LamLetter = 0x644;
inline constexpr std::uint32_t AlefMaksura = 0x649;
inline constexpr std::uint32_t SuperscriptAlef = 0x670;
inline constexpr std::uint32_t Dagesh = 0x5BC;
inline constexpr std::uint32_t ZeroWidthJoiner = 0x200D;

struct TRow {
  std::uint16_t CodePoint;
  TWord Joining;
  std::uint16_t Form;
};

inline constexpr TRow Letters[] = {
    {0x621, DoesNotJoin, 0xFE80},
    {0x622, JoinsRight, 0xFE81},
    {0x623, JoinsRight, 0xFE83},
    {0x624, JoinsRight, 0xFE85},
    {0x625, JoinsRight, 0xFE87},
    {0x626, JoinsBoth, 0xFE89},
    {0x627, JoinsRight, 0xFE8D},
    {0x628, JoinsBoth, 0xFE8F},
    {0x629, JoinsRight, 0xFE93},
    {0x62A, JoinsBoth, 0xFE95},
    {0x62B, JoinsBoth, 0xFE99},
    {0x62C, JoinsBoth, 0xFE9D},
    {0x62D, JoinsBoth, 0xFEA1},
    {0x62E, JoinsBoth, 0xFEA5},
    {0x62F, JoinsRight, 0xFEA9},
    {0x630, JoinsRight, 0xFEAB},
    {0x631, JoinsRight, 0xFEAD},
    {0x632, JoinsRight, 0xFEAF},
    {0x633, JoinsBoth, 0xFEB1},
    {0x634, JoinsBoth, 0xFEB5},
    {0x635, JoinsBoth, 0xFEB9},
    {0x636, JoinsBoth, 0xFEBD},
    {0x637, JoinsBoth, 0xFEC1},
    {0x638, JoinsBoth, 0xFEC5},
    {0x639, JoinsBoth, 0xFEC9},
    {0x63A, JoinsBoth, 0xFECD},
    {0x641, JoinsBoth, 0xFED1},
    {0x642, JoinsBoth, 0xFED5},
    {0x643, JoinsBoth, 0xFED9},
    {0x644, JoinsBoth, 0xFEDD},
    {0x645, JoinsBoth, 0xFEE1},
    {0x646, JoinsBoth, 0xFEE5},
    {0x647, JoinsBoth, 0xFEE9},
    {0x648, JoinsRight, 0xFEED},
    {0x64A, JoinsBoth, 0xFEF1},
    {0x649, JoinsBothAlefMaksura, 0xFEEF},
    // Letters of Persian, Urdu and their neighbours.
    {0x671, DoesNotJoin, 0xFB50},
    {0x679, JoinsBoth, 0xFB66},
    {0x67A, JoinsBoth, 0xFB5E},
    {0x67B, JoinsBoth, 0xFB52},
    {0x67E, JoinsBoth, 0xFB56},
    {0x67F, JoinsBoth, 0xFB62},
    {0x680, JoinsBoth, 0xFB5A},
    {0x683, JoinsBoth, 0xFB76},
    {0x684, JoinsBoth, 0xFB72},
    {0x686, JoinsBoth, 0xFB7A},
    {0x687, JoinsBoth, 0xFB7E},
    {0x688, JoinsRight, 0xFB88},
    {0x68C, JoinsRight, 0xFB84},
    {0x68D, JoinsRight, 0xFB82},
    {0x68E, JoinsRight, 0xFB86},
    {0x691, JoinsRight, 0xFB8C},
    {0x698, JoinsRight, 0xFB8A},
    {0x6A4, JoinsBoth, 0xFB6A},
    {0x6A6, JoinsBoth, 0xFB6E},
    {0x6A9, JoinsBoth, 0xFB8E},
    {0x6AD, JoinsBoth, 0xFBD3},
    {0x6AF, JoinsBoth, 0xFB92},
    {0x6B1, JoinsBoth, 0xFB9A},
    {0x6B3, JoinsBoth, 0xFB96},
    {0x6BA, JoinsRight, 0xFB9E},
    {0x6BB, JoinsBoth, 0xFBA0},
    {0x6BE, JoinsBoth, 0xFBAA},
    {0x6C0, JoinsRight, 0xFBA4},
    {0x6C1, JoinsBoth, 0xFBA6},
    {0x6C5, JoinsRight, 0xFBE0},
    {0x6C6, JoinsRight, 0xFBD9},
    {0x6C7, JoinsRight, 0xFBD7},
    {0x6C8, JoinsRight, 0xFBDB},
    {0x6C9, JoinsRight, 0xFBE2},
    {0x6CB, JoinsRight, 0xFBDE},
    {0x6CC, JoinsBoth, 0xFBFC},
    {0x6D0, JoinsBoth, 0xFBE4},
    {0x6D2, JoinsRight, 0xFBAE},
    {0x6D3, JoinsRight, 0xFBB0},
    {0x6D5, JoinsRight, 0xFEE9},
};

// A lam and an alef are drawn as one; the table gives the isolated form.
struct TLamAlef {
  std::uint16_t Alef;
  std::uint16_t Form;
};
inline constexpr TLamAlef LamAlefs[] = {{0x622, 0xFEF5}, {0x623, 0xFEF7}, {0x625, 0xFEF9}, {0x627, 0xFEFB}};

// A Hebrew letter and a point behind it that are drawn as one.
struct THebrewPair {
  std::uint16_t Letter;
  std::uint16_t Point;
  std::uint16_t Form;
};
inline constexpr THebrewPair HebrewPairs[] = {{0x5D0, 0x5B7, 0xFB2E}, {0x5D0, 0x5B8, 0xFB2F}, {0x5D1, 0x5BF, 0xFB4C},
                                              {0x5D5, 0x5B9, 0xFB4B}, {0x5DB, 0x5BF, 0xFB4D}, {0x5E4, 0x5BF, 0xFB4E},
                                              {0x5E9, 0x5C1, 0xFB2A}, {0x5E9, 0x5C2, 0xFB2B}};

// Brackets that a right-to-left reading exchanges. U+2039 and U+203A are not among them.
inline constexpr std::uint16_t Mirrored[][2] = {{'(', ')'}, {'[', ']'}, {'{', '}'}, {0xAB, 0xBB}, {0x8B, 0x9B}};

// One word per code point, up to the zero-width joiner, and one behind them for everything above. Texts touch a few
// lines of it only.
inline constexpr std::uint32_t TableSize = ZeroWidthJoiner + 1;
using TTable = std::array<TWord, TableSize + 1>;

constexpr void SetForm(TTable& table, std::uint32_t c, std::uint32_t form) {
  table[c] = (table[c] & 0xFFFF) | ((form - c + FormBias) << FormShift);
}

constexpr void SetBits(TTable& table, std::uint32_t first, std::uint32_t last, TWord bits) {
  for (std::uint32_t c = first; c <= last; ++c) table[c] |= bits;
}

constexpr TTable MakeTable() {
  TTable table{};
  for (TWord& word : table) word = (FormBias << FormShift) | DoesNotJoin;
  for (const auto& [a, b] : Mirrored) {
    SetForm(table, a, b);
    SetForm(table, b, a);
  }
  for (const TRow& row : Letters) {
    table[row.CodePoint] |= row.Joining;
    SetForm(table, row.CodePoint, row.Form);
  }
  table[AlefMaksura] |= Special;
  table[Tatweel] |= Special | JoinsBack;

  for (std::uint32_t mark = 0x64B; mark <= 0x652; ++mark) SetForm(table, mark, 0xFE70 + 2 * (mark - 0x64B));
  SetBits(table, 0x64B, 0x65F, Transparent);
  SetBits(table, SuperscriptAlef, SuperscriptAlef, Transparent);
  SetBits(table, 0x6D6, 0x6DD, Transparent);
  SetBits(table, 0x6DF, 0x6E8, Transparent);
  SetBits(table, 0x6EA, 0x6ED, Transparent);
  table[Shadda] |= Special;
  table[ZeroWidthJoiner] |= Special;

  table[Dagesh] |= Special;
  for (const THebrewPair& pair : HebrewPairs) table[pair.Point] |= Special;

  table[LamLetter] |= Lam | LamFollower;
  for (const TLamAlef& ligature : LamAlefs) table[ligature.Alef] |= LamFollower;
  SetBits(table, 0x64C, 0x650, LamFollower);
  return table;
}

inline constexpr TTable Table = MakeTable();

// The word of any code point. Written so that no branch is made of it: text mixes letters with characters from above.
constexpr TWord Word(std::uint32_t c) {
  const std::uint32_t index = c < TableSize ? c : TableSize;
  return Table[index];
}

}  // namespace orv::shaping
