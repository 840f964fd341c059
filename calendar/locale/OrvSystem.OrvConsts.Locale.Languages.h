// The locales of each language, one array a language.
#pragma once

#include "calendar/locale/OrvSystem.OrvConsts.Locale.h"

namespace orv::languages {

inline constexpr TOrvLCIDRec Afrikaans[] = {{"af-ZA", 0x0436, 1252}};
inline constexpr TOrvLCIDRec Albanian[] = {{"sq-AL", 0x041C, 1250}};
inline constexpr TOrvLCIDRec Amharic[] = {{"am-ET", 0x045E, 0}};
inline constexpr TOrvLCIDRec Arabic[] = {
    {"ar-dz", 0x1401, 1256}, {"ar-bh", 0x3C01, 1256}, {"ar-eg", 0x0C01, 1256}, {"ar-iq", 0x0801, 1256},
    {"ar-jo", 0x2C01, 1256}, {"ar-kw", 0x3401, 1256}, {"ar-lb", 0x3001, 1256}, {"ar-ly", 0x1001, 1256},
    {"ar-ma", 0x1801, 1256}, {"ar-om", 0x2001, 1256}, {"ar-qa", 0x4001, 1256}, {"ar-sa", 0x0401, 1256},
    {"ar-sy", 0x2801, 1256}, {"ar-tn", 0x1C01, 1256}, {"ar-ae", 0x3801, 1256}, {"ar-ye", 0x2401, 1256}};
inline constexpr TOrvLCIDRec Armenian[] = {{"hy-AM", 0x042B, 0}};
inline constexpr TOrvLCIDRec Assamese[] = {{"as-IN", 0x044D, 0}};
inline constexpr TOrvLCIDRec Azeri[] = {{"az-Cyrl-AZ", 0x082C, 1251}, {"az-Latn-AZ", 0x042C, 1254}};
inline constexpr TOrvLCIDRec Basque[] = {{"eu-ES", 0x042D, 1252}};
inline constexpr TOrvLCIDRec Belarusian[] = {{"be-BY", 0x0423, 1251}};
inline constexpr TOrvLCIDRec Bengali[] = {{"bn-BD", 0x0845, 0}, {"bn-IN", 0x0445, 0}};
inline constexpr TOrvLCIDRec Bosnian[] = {
    {"bs-Cyrl-BA", 0x201A, 1251}, {"bs-Latn-BA", 0x141A, 1250}, {"hr-BA", 0x101A, 1250},
    {"hr-HR", 0x041A, 1250},      {"sr-Cyrl-BA", 0x1C1A, 1251}, {"sr-Cyrl-CS", 0x0C1A, 1251},
    {"sr-Cyrl-ME", 0x301A, 1251}, {"sr-Cyrl-RS", 0x281A, 1251}, {"sr-Latn-BA", 0x181A, 1250},
    {"sr-Latn-CS", 0x081A, 1250}, {"sr-Latn-ME", 0x2C1A, 1250}, {"sr-Latn-RS", 0x241A, 1250}};
inline constexpr TOrvLCIDRec Bulgarian[] = {{"bg-BG", 0x0402, 1251}};
inline constexpr TOrvLCIDRec Burmese[] = {{"my-MM", 0x0455, 0}};
inline constexpr TOrvLCIDRec Catalan[] = {{"ca-ES", 0x0403, 1252}, {"ca-ES-valencia", 0x0803, 1252}};
inline constexpr TOrvLCIDRec Chinese[] = {{"zh-CN", 0x0804, 936},
                                          {"zh-HK", 0x0C04, 950},
                                          {"zh-MO", 0x1404, 950},
                                          {"zh-SG", 0x1004, 936},
                                          {"zh-TW", 0x0404, 950}};
inline constexpr TOrvLCIDRec Czech[] = {{"cs-CZ", 0x0405, 1250}};
inline constexpr TOrvLCIDRec Danish[] = {{"da-DK", 0x0406, 1252}};
inline constexpr TOrvLCIDRec Dutch[] = {{"nl-BE", 0x0813, 1252}, {"nl-NL", 0x0413, 1252}};
inline constexpr TOrvLCIDRec English[] = {{"en-AU", 0x0C09, 1252},  {"en-BZ", 0x2809, 1252}, {"en-CA", 0x1009, 1252},
                                          {"en-029", 0x2409, 1252}, {"en-HK", 0x3C09, 1252}, {"en-IN", 0x4009, 1252},
                                          {"en-IE", 0x1809, 1252},  {"en-JM", 0x2009, 1252}, {"en-MY", 0x4409, 1252},
                                          {"en-NZ", 0x1409, 1252},  {"en-PH", 0x3409, 1252}, {"en-SG", 0x4809, 1252},
                                          {"en-ZA", 0x1C09, 1252},  {"en-TT", 0x2C09, 1252}, {"en-GB", 0x0809, 1252},
                                          {"en-US", 0x0409, 1252},  {"en-ZW", 0x3009, 1252}};
inline constexpr TOrvLCIDRec Estonian[] = {{"et-EE", 0x0425, 1257}};
inline constexpr TOrvLCIDRec FYRO[] = {{"mk-MK", 0x042F, 1251}};
inline constexpr TOrvLCIDRec Faroese[] = {{"fo-FO", 0x0438, 1252}};
inline constexpr TOrvLCIDRec Farsi[] = {{"fa-IR", 0x0429, 1256}};
inline constexpr TOrvLCIDRec Finnish[] = {{"fi-FI", 0x040B, 1252}};
inline constexpr TOrvLCIDRec French[] = {{"fr-BE", 0x080C, 1252}, {"fr-CM", 0x2C0C, 1252}, {"fr-CA", 0x0C0C, 1252},
                                         {"fr-CD", 0x240C, 1252}, {"fr-CI", 0x300C, 1252}, {"fr-FR", 0x040C, 1252},
                                         {"fr-HT", 0x3C0C, 1252}, {"fr-LU", 0x140C, 1252}, {"fr-ML", 0x340C, 1252},
                                         {"fr-MA", 0x380C, 1252}, {"fr-MC", 0x180C, 1252}, {"fr-RE", 0x200C, 1252},
                                         {"fr-SN", 0x280C, 1252}, {"fr-CH", 0x100C, 1252}};
inline constexpr TOrvLCIDRec Gaelic[] = {{"ga-IE", 0x083C, 1252}};
inline constexpr TOrvLCIDRec Galician[] = {{"gl-ES", 0x0456, 1252}};
inline constexpr TOrvLCIDRec Georgian[] = {{"ka-GE", 0x0437, 0}};
inline constexpr TOrvLCIDRec German[] = {{"de-AT", 0x0C07, 1252},
                                         {"de-DE", 0x0407, 1252},
                                         {"de-LI", 0x1407, 1252},
                                         {"de-LU", 0x1007, 1252},
                                         {"de-CH", 0x0807, 1252}};
inline constexpr TOrvLCIDRec Greek[] = {{"el-GR", 0x0408, 1253}};
inline constexpr TOrvLCIDRec Guarani[] = {{"gn-PY", 0x0474, 1252}};
inline constexpr TOrvLCIDRec Gujarati[] = {{"gu-IN", 0x0447, 0}};
inline constexpr TOrvLCIDRec Hebrew[] = {{"he", 0x040D, 1255}};
inline constexpr TOrvLCIDRec Hindi[] = {{"hi-IN", 0x0439, 0}};
inline constexpr TOrvLCIDRec Hungarian[] = {{"hu-HU", 0x040E, 1250}};
inline constexpr TOrvLCIDRec Icelandic[] = {{"is-IS", 0x040F, 1252}};
inline constexpr TOrvLCIDRec Indonesian[] = {{"id-ID", 0x0421, 1252}};
inline constexpr TOrvLCIDRec Italian[] = {{"it-IT", 0x0410, 1252}, {"it-CH", 0x0810, 1252}};
inline constexpr TOrvLCIDRec Japanese[] = {{"ja-JP", 0x0411, 932}};
inline constexpr TOrvLCIDRec Kannada[] = {{"kn-IN", 0x044B, 0}};
inline constexpr TOrvLCIDRec Kashmiri[] = {{"ks-Arab", 0x0460, 0}, {"ks-Deva-IN", 0x0860, 0}};
inline constexpr TOrvLCIDRec Kazakh[] = {{"kk-KZ", 0x043F, 0}};
inline constexpr TOrvLCIDRec Kyrgyz[] = {{"ky-KG", 0x0440, 1251}};
inline constexpr TOrvLCIDRec Khmer[] = {{"km-KH", 0x0453, 0}};
inline constexpr TOrvLCIDRec Korean[] = {{"ko-KR", 0x0412, 949}};
inline constexpr TOrvLCIDRec Lao[] = {{"lo-LA", 0x0454, 0}};
inline constexpr TOrvLCIDRec Latin[] = {{"la-VA", 0x0476, 0}};
inline constexpr TOrvLCIDRec Latvian[] = {{"lv-LV", 0x0426, 1257}};
inline constexpr TOrvLCIDRec Lithuanian[] = {{"lt-LT", 0x0427, 1257}};
inline constexpr TOrvLCIDRec Malay[] = {{"ms-BN", 0x083E, 1252}, {"ms-MY", 0x043E, 1252}};
inline constexpr TOrvLCIDRec Malayalam[] = {{"ml-IN", 0x044C, 0}};
inline constexpr TOrvLCIDRec Maltese[] = {{"mt-MT", 0x043A, 0}};
inline constexpr TOrvLCIDRec Maori[] = {{"mi-NZ", 0x0481, 0}};
inline constexpr TOrvLCIDRec Marathi[] = {{"mr-IN", 0x044E, 0}};
inline constexpr TOrvLCIDRec Mongolian[] = {
    {"mn-MN", 0x0450, 1251}, {"mn-Mong-CN", 0x0850, 0}, {"mn-Mong-MN", 0x0C50, 0}};
inline constexpr TOrvLCIDRec Norwegian[] = {{"nb-NO", 0x0414, 1252}, {"nn-NO", 0x0814, 1252}};
inline constexpr TOrvLCIDRec Nepali[] = {{"ne-IN", 0x0861, 0}, {"ne-NP", 0x0461, 0}};
inline constexpr TOrvLCIDRec Frisian[] = {{"fy-NL", 0x0462, 1252}};
inline constexpr TOrvLCIDRec Oriya[] = {{"or-IN", 0x0448, 0}};
inline constexpr TOrvLCIDRec Polish[] = {{"pl-PL", 0x0415, 1250}};
inline constexpr TOrvLCIDRec Portuguese[] = {{"pt-BR", 0x0416, 1252}, {"pt-PT", 0x0816, 1252}};
inline constexpr TOrvLCIDRec Punjabi[] = {{"pa-IN", 0x0446, 0}, {"pa-Arab-PK", 0x0846, 1256}};
inline constexpr TOrvLCIDRec Raeto_Romance[] = {{"rm-CH", 0x0417, 1252}};
inline constexpr TOrvLCIDRec Romanian[] = {{"ro-MD", 0x0818, 0}, {"ro-RO", 0x0418, 1250}};
inline constexpr TOrvLCIDRec Russian[] = {{"ru-MD", 0x0819, 0}, {"ru-RU", 0x0419, 1251}};
inline constexpr TOrvLCIDRec Sanskrit[] = {{"sa-IN", 0x044F, 0}};
inline constexpr TOrvLCIDRec Setsuana[] = {{"tn-BW", 0x0832, 1252}, {"tn-ZA", 0x0432, 1252}};
inline constexpr TOrvLCIDRec Sindhi[] = {{"sd-Deva-IN", 0x0459, 0}, {"sd-Arab-PK", 0x0859, 1256}};
inline constexpr TOrvLCIDRec Syriac[] = {{"syr-SY", 0x045A, 0}};
inline constexpr TOrvLCIDRec Sinhalese[] = {{"si-LK", 0x045B, 0}};
inline constexpr TOrvLCIDRec Slovak[] = {{"sk-SK", 0x041B, 1250}};
inline constexpr TOrvLCIDRec Slovenian[] = {{"sl-SI", 0x0424, 1250}};
inline constexpr TOrvLCIDRec Somali[] = {{"so-SO", 0x0477, 0}};
inline constexpr TOrvLCIDRec Sorbian[] = {{"hsb-DE", 0x042E, 1252}, {"dsb-DE", 0x082E, 1252}};
inline constexpr TOrvLCIDRec Spanish[] = {
    {"es-AR", 0x2C0A, 1252}, {"es-BO", 0x400A, 1252}, {"es-CL", 0x340A, 1252},        {"es-CO", 0x240A, 1252},
    {"es-CR", 0x140A, 1252}, {"es-CU", 0x5C0A, 1252}, {"es-DO", 0x1C0A, 1252},        {"es-EC", 0x300A, 1252},
    {"es-SV", 0x440A, 1252}, {"es-GT", 0x100A, 1252}, {"es-HN", 0x480A, 1252},        {"es-419", 0x580A, 0},
    {"es-MX", 0x080A, 1252}, {"es-NI", 0x4C0A, 1252}, {"es-PA", 0x180A, 1252},        {"es-PY", 0x3C0A, 1252},
    {"es-PE", 0x280A, 1252}, {"es-PR", 0x500A, 1252}, {"es-ES_tradnl", 0x040A, 1252}, {"es-ES", 0x0C0A, 1252},
    {"es-US", 0x540A, 1252}, {"es-UY", 0x380A, 1252}, {"es-VE", 0x200A, 1252}};
inline constexpr TOrvLCIDRec Swahili[] = {{"sw-KE", 0x0441, 1252}};
inline constexpr TOrvLCIDRec Swedish[] = {{"sv-FI", 0x081D, 1252}, {"sv-SE", 0x041D, 1252}};
inline constexpr TOrvLCIDRec Tajik[] = {{"tg-Cyrl-TJ", 0x0428, 1251}};
inline constexpr TOrvLCIDRec Tamil[] = {{"ta-IN", 0x0449, 0}, {"ta-LK", 0x0849, 0}};
inline constexpr TOrvLCIDRec Tatar[] = {{"tt-RU", 0x0444, 1251}};
inline constexpr TOrvLCIDRec Telugu[] = {{"te-IN", 0x044A, 0}};
inline constexpr TOrvLCIDRec Thai[] = {{"th-TH", 0x041E, 874}};
inline constexpr TOrvLCIDRec Tibetan[] = {{"bo-CN", 0x0451, 0}, {"dz-BT", 0x0C51, 0}};
inline constexpr TOrvLCIDRec Tsonga[] = {{"ts-ZA", 0x0431, 0}};
inline constexpr TOrvLCIDRec Turkish[] = {{"tr-TR", 0x041F, 1254}};
inline constexpr TOrvLCIDRec Turkmen[] = {{"tk-TM", 0x0442, 1250}};
inline constexpr TOrvLCIDRec Ukrainian[] = {{"uk-UA", 0x0422, 1251}};
inline constexpr TOrvLCIDRec Urdu[] = {{"ur", 0x0420, 1256}, {"ur-IN", 0x0820, 0}};
inline constexpr TOrvLCIDRec Uzbek[] = {{"uz-Cyrl-UZ", 0x0843, 1251}, {"uz-Latn-UZ", 0x0443, 1254}};
inline constexpr TOrvLCIDRec Vietnamese[] = {{"vi-VN", 0x042A, 1258}};
inline constexpr TOrvLCIDRec Welsh[] = {{"cy-GB", 0x0452, 1252}};
inline constexpr TOrvLCIDRec Xhosa[] = {{"xh-ZA", 0x0434, 1252}};
inline constexpr TOrvLCIDRec Yiddish[] = {{"yi-001", 0x043D, 0}};
inline constexpr TOrvLCIDRec Zulu[] = {{"zu-ZA", 0x0435, 1252}};
inline constexpr TOrvLCIDRec Sami[] = {{"se-NO", 0x043B, 1252},  {"se-SE", 0x083B, 1252},  {"se-FI", 0x0C3B, 1252},
                                       {"smj-NO", 0x103B, 1252}, {"smj-SE", 0x143B, 1252}, {"sma-NO", 0x183B, 1252},
                                       {"sma-SE", 0x1C3B, 1252}, {"sms-FI", 0x203B, 1252}, {"smn-FI", 0x243B, 1252}};
inline constexpr TOrvLCIDRec Sotho[] = {{"st-ZA", 0x0430, 0}};
inline constexpr TOrvLCIDRec Konkani[] = {{"kok-IN", 0x0457, 0}};
inline constexpr TOrvLCIDRec Cherokee[] = {{"chr-Cher-US", 0x045C, 0}};
inline constexpr TOrvLCIDRec Inuktitut[] = {{"iu-Cans-CA", 0x045D, 0}, {"iu-Latn-CA", 0x085D, 1252}};
inline constexpr TOrvLCIDRec Pashto[] = {{"ps-AF", 0x0463, 0}};
inline constexpr TOrvLCIDRec Filipino[] = {{"fil-PH", 0x0464, 1252}};
inline constexpr TOrvLCIDRec Divehi[] = {{"dv-MV", 0x0465, 0}};
inline constexpr TOrvLCIDRec Hausa[] = {{"ha-Latn-NG", 0x0468, 1252}};
inline constexpr TOrvLCIDRec Igbo[] = {{"ig-NG", 0x0470, 1252}};
inline constexpr TOrvLCIDRec Oromo[] = {{"om-ET", 0x0472, 0}};
inline constexpr TOrvLCIDRec Tigrinya[] = {{"ti-ER", 0x0873, 0}, {"ti-ET", 0x0473, 0}};
inline constexpr TOrvLCIDRec Hawaiian[] = {{"haw-US", 0x0475, 1252}};
inline constexpr TOrvLCIDRec Yi[] = {{"ii-CN", 0x0478, 0}};
inline constexpr TOrvLCIDRec Uyghur[] = {{"ug-CN", 0x0480, 1256}};
inline constexpr TOrvLCIDRec Occitan[] = {{"oc-FR", 0x0482, 1252}};
inline constexpr TOrvLCIDRec Corsican[] = {{"co-FR", 0x0483, 1252}};
inline constexpr TOrvLCIDRec Alsatian[] = {{"gsw-FR", 0x0484, 1252}};
inline constexpr TOrvLCIDRec Sakha[] = {{"sah-RU", 0x0485, 1251}};
inline constexpr TOrvLCIDRec Kiche[] = {{"qut-GT", 0x0486, 1252}};
inline constexpr TOrvLCIDRec Kinyarwanda[] = {{"rw-RW", 0x0487, 1252}};
inline constexpr TOrvLCIDRec Wolof[] = {{"wo-SN", 0x0488, 1252}};
inline constexpr TOrvLCIDRec ScottishGaelic[] = {{"gd-GB", 0x0491, 1252}};
inline constexpr TOrvLCIDRec Kurdish[] = {{"ku-Arab-IQ", 0x0492, 1256}};
inline constexpr TOrvLCIDRec Yoruba[] = {{"yo-NG", 0x046A, 1252}};
inline constexpr TOrvLCIDRec Quechua[] = {{"quz-BO", 0x046B, 1252}, {"quz-EC", 0x086B, 1252}, {"quz-PE", 0x0C6B, 1252}};
inline constexpr TOrvLCIDRec Sesotho[] = {{"nso-ZA", 0x046C, 1252}};
inline constexpr TOrvLCIDRec Bashkir[] = {{"ba-RU", 0x046D, 1251}};
inline constexpr TOrvLCIDRec Luxembourgish[] = {{"lb-LU", 0x046E, 1252}};
inline constexpr TOrvLCIDRec Greenlandic[] = {{"kl-GL", 0x046F, 1252}};
inline constexpr TOrvLCIDRec Mapudungun[] = {{"arn-CL", 0x047A, 1252}};
inline constexpr TOrvLCIDRec Mohawk[] = {{"moh-CA", 0x047C, 1252}};
inline constexpr TOrvLCIDRec Breton[] = {{"br-FR", 0x047E, 1252}};
inline constexpr TOrvLCIDRec Dari[] = {{"prs-AF", 0x048C, 1256}};

}  // namespace orv::languages
