// The presentation transforms in any order: none makes a list longer, and digits and primes keep its length.
#include "fuzz/Input.h"
#include "unicode/Unicode.Text.UCS4.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orv;
  fuzz::TInput input(data, size);
  input.Settings();
  const std::uint8_t order = input.Byte();
  TUCS4List list = ToUCS4String(input.Text());
  for (int step = 0; step < 4; ++step) {
    const std::size_t before = list.size();
    switch ((order >> (2 * step)) & 3) {
      case 0:
        TUCS4ListHelper::ChangeToComplexCharacters(list);
        fuzz::Require(list.size() <= before, "shaping never lengthens");
        continue;
      case 1:
        TUCS4ListHelper::ChangeToArabicDigits(list);
        break;
      case 2:
        TUCS4ListHelper::ReplaceQuotesWithPrimes(list);
        break;
      default:
        for (UCS4Char& c : list) TUCS4ListHelper::QuoteToReversePrime(c);
    }
    fuzz::Require(list.size() == before, "digits and primes keep the length");
  }
  return 0;
}
