#include "tests/golden/Scenes.h"

#include <memory>

namespace orv::golden {
namespace {

using fmx::TFont;
using fmx::TFontStyle;
using fmx::TFontStyles;
using fmx::TTextAlign;
using fmx::TTextTrimming;
using enum fmx::TFontStyle;
using TLayout = TTextLayoutNGOrv;

constexpr fmx::TAlphaColor Red = 0xFFC62828;
constexpr fmx::TAlphaColor Blue = 0xFF1558B0;
constexpr fmx::TAlphaColor Green = 0xFF1B7F3B;

void Right(TLayout& l) {
  l.SetHorizontalAlign(TTextAlign::Trailing);
}
void Centred(TLayout& l) {
  l.SetHorizontalAlign(TTextAlign::Center);
}
void Wrap(TLayout& l) {
  l.SetWordWrap(true);
}
void WrapRight(TLayout& l) {
  Wrap(l);
  Right(l);
}

auto Trim(TTextTrimming trimming, TTextAlign align) {
  return [=](TLayout& l) {
    l.SetTrimming(trimming);
    l.SetHorizontalAlign(align);
  };
}

auto InFont(const char16_t* family, float size, TTextAlign align, TFontStyles style = {}) {
  return [=](TLayout& l) {
    l.SetFont(TFont(family, size, style));
    l.SetHorizontalAlign(align);
  };
}

void Mark(TLayout& l, std::int32_t start, std::int32_t length, fmx::TAlphaColor color, TFontStyles style = {},
          float size = 20) {
  l.AddAttribute({start, length}, {std::make_shared<TFont>(u"DejaVu Sans", size, style), color});
}

void Select(TLayout& l, std::int32_t start, std::int32_t length) {
  l.AddAttribute(std::make_unique<TTextAttributedRangeBidi>(fmx::TTextRange{start, length},
                                                            fmx::TTextAttribute{nullptr, Red}, true));
}

const TScene All[] = {
    // Scripts
    {"persian", u"سلام دنیا! این متن فارسی است.", Right},
    {"arabic", u"مرحبا بالعالم، هذا نص عربي.", Right},
    {"hebrew", u"שלום עולם, זה טקסט בעברית.", Right},
    {"latin", u"Hello, world! Office affinity."},
    {"persian-letters", u"پچگژ کی ئ ؤ أ إ آ ة ۀ", Right},
    {"lam-alef", u"لا لأ لإ لآ سلام بلا كلا", Right},
    {"rare-ligature", u"بسم الله و ﷲ", Right},
    {"mixed-from-right", u"نسخهٔ Writer برای Linux است.", Right},
    {"mixed-from-left", u"Names: سعدی and שלום here."},
    {"digits", u"سال ۱۴۰۳ و 120 و 12.5%", Right},
    {"equation", u"عدد 12+57=69 است", Right},
    {"brackets", u"تهران (پایتخت) و [قم] «نو»", Right},
    {"joiners", u"می‌خواهم خانه‌ها ه‍ نمی‌شود", Right},
    {"silent-controls", u"a\u200Bb\u200Ec\u202Ad\u202Ce\u2060f\u0001g | ab"},
    {"missing-glyph", u"a\U0010FFFEb \uFFFF c"},
    // Marks
    {"vowels", u"كَتَبَ كُتِبَ سَمِعَ", Right},
    {"shadda", u"مُحَمَّدٌ وَالسَّلامُ رَبِّي", Right},
    {"endings", u"كتاباً كتابٌ كتابٍ مَسْجِد", Right},
    {"vowels-on-ligatures", u"لَا السَّلَام الْأَوَّل", Right},
    {"hebrew-points", u"שָׁלוֹם עוֹלָם", Right},
    {"hebrew-dagesh", u"בּוֹקֶר שִׂמְחָה תּוֹדָה", Right},
    // Wrapping
    {"wrap-persian",
     u"حافظهٔ نهان یک سیستم ذخیره‌سازی موقت به "
     u"منظور افزایش سرعت دسترسی به داده است.",
     WrapRight, 300, 84},
    {"wrap-mixed",
     u"برنامهٔ SpamAssassin نامه‌های ناخواسته را می‌شناسد "
     u"و با امتیاز 5.0 کنار می‌گذارد.",
     WrapRight, 300, 84},
    {"wrap-hebrew", u"בכתב העברי 22 אותיות, וחמש מהן לובשות צורה אחרת בסוף המילה.", WrapRight, 300, 84},
    {"wrap-latin", u"In English prose a name like سعدی stands in its place, and the line goes on.", Wrap, 300, 84},
    {"wrap-long-word", u"aaaabbbbccccddddeeeeffffgggghhhhiiiijjjj", Wrap, 200, 60},
    {"wrap-centred", u"سه سطر از یک متن که هر یک در میانهٔ جعبه است.", [](TLayout& l) { Wrap(l), Centred(l); }, 200, 84},
    {"line-ends", u"یک\r\nدو\n\nسه", WrapRight, 300, 108},
    // Trimming
    {"trim-character-from-right", u"بنی‌آدم اعضای یکدیگرند که در آفرینش",
     Trim(TTextTrimming::Character, TTextAlign::Trailing), 200},
    {"trim-word-from-right", u"بنی‌آدم اعضای یکدیگرند که در آفرینش",
     Trim(TTextTrimming::Word, TTextAlign::Trailing), 200},
    {"trim-character-from-left", u"The quick brown fox jumps", Trim(TTextTrimming::Character, TTextAlign::Leading),
     200},
    {"trim-word-from-left", u"The quick brown fox jumps", Trim(TTextTrimming::Word, TTextAlign::Leading), 200},
    {"trim-mixed", u"The name سعدی شیرازی and more", Trim(TTextTrimming::Character, TTextAlign::Leading), 180},
    {"ellipsis-leading", u"بنی‌آدم اعضای یکدیگرند",
     Trim(TTextTrimming::Character, TTextAlign::Leading), 160},
    {"ellipsis-centre", u"بنی‌آدم اعضای یکدیگرند",
     Trim(TTextTrimming::Character, TTextAlign::Center), 160},
    {"ellipsis-trailing", u"The quick brown fox", Trim(TTextTrimming::Character, TTextAlign::Trailing), 160},
    // Tabs
    {"tabs-from-left", u"a\tbb\tccc\nאב\tdd\te", [](TLayout& l) { l.SetTabSize(70); }, 300, 60},
    {"tabs-from-right", u"یک\tدو\tسه\n۱\t۲\t۳", [](TLayout& l) { l.SetTabSize(70), Right(l); }, 300, 60},
    // Attributes
    {"attribute-colours", u"سرخ آبی سبز abc",
     [](TLayout& l) { Right(l), Mark(l, 0, 3, Red), Mark(l, 4, 3, Blue), Mark(l, 8, 3, Green); }},
    {"attribute-on-ligature", u"سلام بلا لا", [](TLayout& l) { Right(l), Mark(l, 1, 1, Red), Mark(l, 7, 1, Blue); }},
    {"attribute-sizes", u"متن بزرگ و کوچک",
     [](TLayout& l) { Right(l), Mark(l, 4, 4, Blue, {}, 30), Mark(l, 11, 4, Red, {}, 13); }},
    {"attribute-styles", u"plain bold italic متن کج",
     [](TLayout& l) {
       Mark(l, 6, 4, Blue, {Bold}), Mark(l, 11, 6, Red, {Italic}), Mark(l, 18, 6, Green, {Bold, Italic});
     }},
    {"attribute-marks", u"كَتَبَ مُحَمَّدٌ", [](TLayout& l) { Right(l), Mark(l, 7, 4, Red); }},
    {"underline", u"زیر خط under line",
     [](TLayout& l) { Right(l), Mark(l, 0, 6, Blue, {Underline}), Mark(l, 7, 5, Red, {Underline}); }},
    {"strike-out", u"خط خورده struck",
     [](TLayout& l) {
       Right(l), Mark(l, 3, 5, Blue, {StrikeOut}), Mark(l, 9, 6, Red, {StrikeOut, Underline});
     }},
    {"selection", u"سلام abc دنیا", [](TLayout& l) { Right(l), Select(l, 2, 8); }},
    // Clipping
    {"clip-left", u"سلام دنیا این متن بلند است", Right, 160},
    {"clip-right", u"The quick brown fox jumps", {}, 160},
    {"clip-both", u"The quick brown fox jumps", Centred, 160},
    {"clip-both-mixed", u"سلام دنیا Writer این متن", Centred, 160},
    {"clip-bottom", u"یک دو سه چهار پنج شش هفت هشت نه ده یازده", WrapRight, 120, 40},
    // Place
    {"vertical-leading", u"بالا top", [](TLayout& l) { l.SetVerticalAlign(TTextAlign::Leading); }, 300, 64},
    {"vertical-centre", u"میان centre", [](TLayout& l) { l.SetVerticalAlign(TTextAlign::Center); }, 300, 64},
    {"vertical-trailing", u"پایین bottom", [](TLayout& l) { l.SetVerticalAlign(TTextAlign::Trailing); }, 300, 64},
    {"padding", u"یک متن با حاشیه",
     [](TLayout& l) {
       WrapRight(l), l.SetPadding({20, 12, 40, 0});
     },
     200, 64},
    {"opacity", u"نیم‌پیدا half", [](TLayout& l) { Right(l), l.SetOpacity(0.4F); }},
    // Scales
    {"scale-1", u"سلام (دنیا) abc ۱۲۳ שָׁלוֹם", Right},
    {"scale-1.5", u"سلام (دنیا) abc ۱۲۳ שָׁלוֹם", Right, 300, 40, 1.5F},
    {"scale-2", u"سلام (دنیا) abc ۱۲۳ שָׁלוֹם", Right, 300, 40, 2},
    // Fonts
    {"small", u"سلام دنیا، متن کوچک abc שלום", InFont(u"DejaVu Sans", 11, TTextAlign::Trailing)},
    {"serif", u"سلام دنیا abc שָׁלוֹם", InFont(u"FreeSerif", 22, TTextAlign::Trailing)},
    {"bold", u"سلام دنیا abc שלום", InFont(u"DejaVu Sans", 20, TTextAlign::Trailing, {Bold})},
    {"italic", u"سلام دنیا abc שלום", InFont(u"DejaVu Sans", 20, TTextAlign::Trailing, {Italic})},
    {"shaped-as-a-whole", u"یہ نستعلیق ہے abc", InFont(u"Noto Nastaliq Urdu", 20, TTextAlign::Trailing), 300, 56},
    {"colour-glyph", u"a \u2764 a\u2764", [](TLayout& l) { l.SetFont(TFont(u"Colours", 26)), l.SetColor(Blue); }},
    // Answers
    {"outline", u"سلام abc", Right, 300, 40, 1, TScene::TWay::Outline},
    {"boxes-of-units", u"سلام abc لا שָׁ", Right, 300, 40, 1, TScene::TWay::Answers},
    {"boxes-of-lines", u"نسخهٔ Writer برای Linux آماده است.", WrapRight, 160, 84, 1, TScene::TWay::Answers},
};

}  // namespace

std::span<const TScene> Scenes() {
  return All;
}

}  // namespace orv::golden
