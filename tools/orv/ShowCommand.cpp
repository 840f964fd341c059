// orv show: text files as pages, in a window or as pictures.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <memory>
#include <set>

#include "platform/Exceptions.h"
#include "platform/Png.h"
#include "platform/Window.h"
#include "tools/orv/Commands.h"
#include "tools/orv/SettingsArguments.h"
#include "tools/orv/TextInput.h"
#include "tools/orv/show/Paint.h"
#include "tools/orv/show/Viewer.h"

namespace orv::command {
namespace {

namespace fs = std::filesystem;

// A folder of its own keeps the pictures apart from the texts.
constexpr const char* OutputFolder = "out";

struct TArguments {
  std::vector<std::string> Files;
  std::string Output;
  bool HasOutput = false;
  int Width = 820;
  show::TFontSettings Fonts;
  std::string Paragraph = "auto";
  std::string Digits = "auto";
  TEngineArguments Engine;
  bool Window = false;
  bool Verbose = false;
};

using TText = std::vector<show::TParagraph>;

constexpr double SmallestPointSize = 4;
constexpr double LargestPointSize = 400;

void CheckSize(double size) {
  if (size >= SmallestPointSize && size <= LargestPointSize) return;  // no number at all is neither
  throw CLI::ValidationError("--size", "it must be from 4 to 400");
}

std::vector<TText> ReadTexts(const TArguments& arguments) {
  show::TTextSettings settings;
  settings.Paragraph = ParagraphOf("--paragraph", arguments.Paragraph);
  if (arguments.Digits != "auto") settings.Digits = DigitTypeOf("--digits", arguments.Digits);
  arguments.Engine.Apply();
  std::vector<TText> texts;
  for (const std::string& file : arguments.Files) texts.push_back(ReadParagraphs(ReadTextFile(file), settings));
  return texts;
}

platform::TFrame Picture(std::span<const TText> texts, show::TPageFonts& fonts, int width) {
  const show::TPage page = show::LayOut(texts, fonts.Faces(), width);
  if (page.Height > platform::MaxPictureSide)
    throw platform::EPictureError("the page is " + std::to_string(page.Height) + " pixels high, and a picture can be " +
                                  std::to_string(platform::MaxPictureSide) + " at most");
  return Paint(page, fonts.Faces(), {}, 0, 0, page.Width, page.Height);
}

// out/NAME.png for each file; files of one name in several folders are numbered.
std::vector<fs::path> PictureNames(const std::vector<std::string>& files) {
  std::vector<fs::path> names;
  std::set<fs::path> taken;
  for (const std::string& file : files) {
    const std::string stem = file == "-" ? "stdin" : fs::path(file).stem().string();
    fs::path name = fs::path(OutputFolder) / (stem + ".png");
    for (int number = 2; !taken.insert(name).second; ++number)
      name = fs::path(OutputFolder) / (stem + "-" + std::to_string(number) + ".png");
    names.push_back(name);
  }
  return names;
}

void WritePictures(const TArguments& arguments, std::span<const TText> texts, const platform::TFontCatalog& catalog) {
  show::TPageFonts fonts(catalog, arguments.Fonts);
  if (arguments.HasOutput) {
    WritePng(arguments.Output, Picture(texts, fonts, arguments.Width));
    std::cout << arguments.Output << '\n';
    return;
  }
  const std::vector<fs::path> names = PictureNames(arguments.Files);
  std::vector<platform::TFrame> pictures;  // all of them before the first is written
  for (std::size_t i = 0; i < texts.size(); ++i)
    pictures.push_back(Picture(texts.subspan(i, 1), fonts, arguments.Width));
  std::error_code error;
  fs::create_directories(OutputFolder, error);
  for (std::size_t i = 0; i < names.size(); ++i) {
    platform::WritePng(names[i], pictures[i]);
    std::cout << names[i].string() << '\n';
  }
}

std::string WindowTitle(const std::vector<std::string>& files) {
  std::string title;
  for (const std::string& file : files) title += (title.empty() ? "" : ", ") + fs::path(file).filename().string();
  return title + " - orv show";
}

void Run(const TArguments& arguments) {
  CheckSize(arguments.Fonts.PointSize);
  const std::vector<TText> texts = ReadTexts(arguments);
  const platform::TFontCatalog catalog;
  const bool wantsWindow = arguments.Window || (!arguments.HasOutput && platform::DisplayIsNamed());
  if (wantsWindow) {
    try {
      const auto silent = [](const std::string&) {};
      const auto tell = [](const std::string& driver) { std::cout << "window on " << driver << std::endl; };
      const show::TViewerSettings viewer = {WindowTitle(arguments.Files), arguments.Fonts, arguments.Width};
      show::View(texts, catalog, viewer, arguments.Verbose ? +tell : +silent);
      return;
    } catch (const platform::ENoDisplay&) {
      if (arguments.Window) throw;
    }
  }
  WritePictures(arguments, texts, catalog);
}

}  // namespace

void AddShowCommand(CLI::App& app) {
  CLI::App* show = app.add_subcommand("show", "Draw text files, in a window or as PNG pictures");
  show->footer(
      "With a display the texts are shown in a window: wheel, arrows, Page Up and Down, Home and End scroll; + - 0 "
      "and\n"
      "Ctrl with the wheel zoom; Esc closes it. Without one, each file becomes the picture out/NAME.png.\n"
      "Every line of a file is a paragraph; the first one is a title where a blank line follows it.\n"
      "\n" +
      OptionHelp() +
      "\n"
      "Examples:\n"
      "  orv show examples/texts/*.txt\n"
      "  orv show page.txt -o page.png --width 600 --font 'DejaVu Sans' --size 14 --digits persian");
  const auto arguments = std::make_shared<TArguments>();
  show->add_option("FILE", arguments->Files, "UTF-8 text files; - is standard input")->type_name("")->required();
  CLI::Option* output =
      show->add_option("-o,--output", arguments->Output, "Write all texts into one PNG picture")->type_name("OUT.png");
  show->add_option("--width", arguments->Width, "Width of the page in pixels")
      ->type_name("PX")
      ->check(CLI::Range(40, platform::MaxPictureSide))
      ->capture_default_str();
  show->add_option("--font", arguments->Fonts.Family, "Font family to be used first")->type_name("FAMILY");
  show->add_option("--size", arguments->Fonts.PointSize, "Size of the letters in points, 96 dots an inch")
      ->type_name("PT")
      ->capture_default_str();
  show->add_option("--paragraph", arguments->Paragraph,
                   "Direction of the paragraphs: ltr, rtl, auto, auto-rtl or neutral; auto goes by each paragraph's "
                   "first letter")
      ->type_name("KIND")
      ->capture_default_str();
  show->add_option("--digits", arguments->Digits,
                   "Digits to be shown for the ASCII ones in right-to-left text: latin, arabic, persian, or auto for "
                   "those of each paragraph's letters")
      ->type_name("TYPE")
      ->capture_default_str();
  arguments->Engine.AddTo(*show);
  show->add_flag("--window", arguments->Window, "Show a window, and fail where there is no display")->excludes(output);
  show->add_flag("-v,--verbose", arguments->Verbose, "Tell the display driver when the window stands");
  show->callback([arguments, output] {
    arguments->HasOutput = output->count() != 0;
    Run(*arguments);
  });
}

}  // namespace orv::command
