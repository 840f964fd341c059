#include "tools/orv/ShowArguments.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <string_view>

#include "tools/orv/eval/Names.h"

namespace orv::command {
namespace {

constexpr eval::TNamed<fmx::TTextAlign> AlignWords[] = {{"leading", fmx::TTextAlign::Leading},
                                                        {"center", fmx::TTextAlign::Center},
                                                        {"trailing", fmx::TTextAlign::Trailing}};
constexpr eval::TNamed<fmx::TTextTrimming> TrimWords[] = {{"none", fmx::TTextTrimming::None},
                                                          {"character", fmx::TTextTrimming::Character},
                                                          {"word", fmx::TTextTrimming::Word}};
constexpr eval::TNamed<fmx::TFontStyle> StyleWords[] = {{"bold", fmx::TFontStyle::Bold},
                                                        {"italic", fmx::TFontStyle::Italic},
                                                        {"underline", fmx::TFontStyle::Underline},
                                                        {"strike", fmx::TFontStyle::StrikeOut}};

template <typename E, std::size_t N>
std::optional<E> Find(std::string_view word, const eval::TNamed<E> (&table)[N]) {
  for (const auto& [name, value] : table)
    if (name == word) return value;
  return std::nullopt;
}

template <typename E, std::size_t N>
E Look(const std::string& argument, const std::string& word, const eval::TNamed<E> (&table)[N]) {
  if (const auto value = Find(word, table)) return *value;
  std::string known;
  for (const auto& [name, value] : table) known += (known.empty() ? "" : ", ") + std::string(name);
  throw CLI::ValidationError(argument, "there is no '" + word + "' (known: " + known + ")");
}

// The whole of the text as a number.
template <typename T>
bool Read(std::string_view text, T& value, int base = 10) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
  return error == std::errc() && end == text.data() + text.size();
}

bool ReadRange(std::string_view text, show::TAttribute& attribute) {
  const std::size_t dash = text.find('-');
  return dash != std::string_view::npos && Read(text.substr(0, dash), attribute.Start) &&
         Read(text.substr(dash + 1), attribute.End) && attribute.Start >= 0 && attribute.End >= attribute.Start;
}

bool ReadColor(std::string_view text, show::TAttribute& attribute) {
  if (text == "-") return true;
  fmx::TAlphaColor color = 0;
  if (!text.starts_with('#') || (text.size() != 7 && text.size() != 9) || !Read(text.substr(1), color, 16))
    return false;
  attribute.Color = text.size() == 7 ? color | 0xFF000000 : color;
  return true;
}

bool ReadLook(std::string_view text, show::TAttribute& attribute) {
  if (const auto style = Find(text, StyleWords)) {
    attribute.Style.Include(*style);
    return true;
  }
  int size = 0;
  if (!text.starts_with("size=") || !Read(text.substr(5), size)) return false;
  attribute.PointSize = size;
  return size >= SmallestPointSize && size <= LargestPointSize;
}

}  // namespace

void CheckBetween(const std::string& argument, double value, double least, double most) {
  if (value >= least && value <= most) return;  // no number at all is neither
  const auto shown = [](double v) {
    std::string text = std::to_string(v);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text;
  };
  throw CLI::ValidationError(argument, "it must be from " + shown(least) + " to " + shown(most));
}

std::optional<fmx::TTextAlign> AlignOf(const std::string& argument, const std::string& word) {
  if (word == "auto") return std::nullopt;
  return Look(argument, word, AlignWords);
}

fmx::TTextTrimming TrimmingOf(const std::string& argument, const std::string& word) {
  return Look(argument, word, TrimWords);
}

show::TAttribute AttributeOf(const std::string& argument, const std::string& word) {
  show::TAttribute attribute;
  const std::string_view text = word;
  const std::size_t equals = text.find('=');
  bool good = equals != std::string_view::npos && ReadRange(text.substr(0, equals), attribute);
  bool isFirst = true;
  for (std::size_t at = equals + 1; good; isFirst = false) {
    const std::size_t comma = std::min(text.find(',', at), text.size());
    const std::string_view part = text.substr(at, comma - at);
    good = isFirst ? ReadColor(part, attribute) : ReadLook(part, attribute);
    if (comma == text.size()) break;
    at = comma + 1;
  }
  if (good) return attribute;
  throw CLI::ValidationError(argument, "'" + word + "' is not START-END=COLOR[,bold,italic,underline,strike,size=N]");
}

}  // namespace orv::command
