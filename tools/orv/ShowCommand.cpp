// orv show: text files as pages, in a window or as pictures.
#include <CLI/CLI.hpp>
#include <cmath>
#include <filesystem>
#include <iostream>
#include <memory>
#include <set>

#include "platform/Exceptions.h"
#include "platform/Png.h"
#include "platform/Window.h"
#include "tools/orv/Commands.h"
#include "tools/orv/SettingsArguments.h"
#include "tools/orv/ShowArguments.h"
#include "tools/orv/TextInput.h"
#include "tools/orv/show/Page.h"
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
  show::TPageSettings Page;
  std::vector<std::string> Attributes;
  std::string Align = "auto";
  std::string Trim = "none";
  bool NoWrap = false;
  bool Dump = false;
  std::string Paragraph = "auto";
  std::string Digits = "auto";
  TEngineArguments Engine;
  bool Window = false;
  bool Verbose = false;
};

using show::TText;

// What stands as words on the command line.
show::TPageSettings PageSettings(const TArguments& arguments) {
  show::TPageSettings page = arguments.Page;
  CheckBetween("--size", page.PointSize, SmallestPointSize, LargestPointSize);
  CheckBetween("--scale", page.Scale, 0.25, 8);
  page.Align = AlignOf("--align", arguments.Align);
  page.Trimming = TrimmingOf("--trim", arguments.Trim);
  page.WordWrap = !arguments.NoWrap;
  for (const std::string& word : arguments.Attributes) page.Attributes.push_back(AttributeOf("--attr", word));
  show::RequireFamily(page.Family);
  return page;
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

platform::TFrame Picture(std::span<const TText> texts, const show::TPageSettings& settings, int width) {
  show::TPage page(texts, settings, width);
  const double height = page.Height() * settings.Scale;
  if (height > platform::MaxPictureSide)
    throw platform::EPictureError("the page is " + std::to_string(std::lround(height)) +
                                  " pixels high, and a picture can be " + std::to_string(platform::MaxPictureSide) +
                                  " at most");
  return page.Picture({});
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

void WritePictures(const TArguments& arguments, std::span<const TText> texts, const show::TPageSettings& page) {
  if (arguments.HasOutput) {
    WritePng(arguments.Output, Picture(texts, page, arguments.Width));
    std::cout << arguments.Output << '\n';
    return;
  }
  const std::vector<fs::path> names = PictureNames(arguments.Files);
  std::vector<platform::TFrame> pictures;  // all of them before the first is written
  for (std::size_t i = 0; i < texts.size(); ++i)
    pictures.push_back(Picture(texts.subspan(i, 1), page, arguments.Width));
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
  const show::TPageSettings page = PageSettings(arguments);
  const std::vector<TText> texts = ReadTexts(arguments);
  show::SetUpText();
  if (arguments.Dump) {
    for (const TText& text : texts) {
      show::TPage shown(std::span(&text, 1), page, arguments.Width);
      std::cout << show::Dump(shown) << '\n';
    }
    return;
  }
  const bool wantsWindow = arguments.Window || (!arguments.HasOutput && platform::DisplayIsNamed());
  if (wantsWindow) {
    try {
      const auto silent = [](const std::string&) {};
      const auto tell = [](const std::string& driver) { std::cout << "window on " << driver << std::endl; };
      const show::TViewerSettings viewer = {WindowTitle(arguments.Files), page, arguments.Width};
      show::View(texts, viewer, arguments.Verbose ? +tell : +silent);
      return;
    } catch (const platform::ENoDisplay&) {
      if (arguments.Window) throw;
    }
  }
  WritePictures(arguments, texts, page);
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
      "  orv show page.txt -o page.png --width 600 --font 'DejaVu Sans' --size 14 --digits persian\n"
      "  orv show page.txt -o page.png --no-wrap --trim word --attr '0-5=#C00000,bold' --boxes --scale 2");
  const auto arguments = std::make_shared<TArguments>();
  show->add_option("FILE", arguments->Files, "UTF-8 text files; - is standard input")->type_name("")->required();
  CLI::Option* output =
      show->add_option("-o,--output", arguments->Output, "Write all texts into one PNG picture")->type_name("OUT.png");
  show->add_option("--width", arguments->Width, "Width of the page in logical units, which are pixels at scale 1")
      ->type_name("PX")
      ->check(CLI::Range(40, platform::MaxPictureSide))
      ->capture_default_str();
  show->add_option("--font", arguments->Page.Family, "Font family to be used first")->type_name("FAMILY");
  show->add_option("--size", arguments->Page.PointSize, "Size of the letters in points, 4/3 of a logical unit each")
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
  show->add_option("--align", arguments->Align,
                   "Side to which lines are aligned: leading, center, trailing, or auto for the one where each "
                   "paragraph begins")
      ->type_name("SIDE")
      ->capture_default_str();
  show->add_option("--trim", arguments->Trim, "How lines that are not wrapped are trimmed: none, character or word")
      ->type_name("KIND")
      ->capture_default_str();
  show->add_flag("--no-wrap", arguments->NoWrap, "Leave each paragraph on one line");
  show->add_option("--attr", arguments->Attributes,
                   "Look of the units START to END - 1 of each text: START-END=COLOR[,bold,italic,underline,strike,"
                   "size=N], the colour as #RRGGBB, #AARRGGBB or -")
      ->type_name("RANGE=LOOK")
      ->allow_extra_args(false);
  show->add_option("--scale", arguments->Page.Scale, "Pixels of a logical unit")->type_name("N")->capture_default_str();
  show->add_flag("--boxes", arguments->Page.Boxes, "Draw the lines, runs and caret stops over the text");
  show->add_flag("--dump", arguments->Dump, "Print the measured frames as JSON, a line for each text, and draw nothing")
      ->excludes(output);
  arguments->Engine.AddTo(*show);
  show->add_flag("--window", arguments->Window, "Show a window, and fail where there is no display")->excludes(output);
  show->add_flag("-v,--verbose", arguments->Verbose, "Tell the display driver when the window stands");
  show->callback([arguments, output] {
    arguments->HasOutput = output->count() != 0;
    Run(*arguments);
  });
}

}  // namespace orv::command
