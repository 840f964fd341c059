// The operations of the HTML and RTF readers.
#include "tools/orv/eval/Arguments.h"
#include "tools/orv/eval/MarkupValues.h"

namespace orv::eval {
namespace {

TJson Html(const TArguments& arguments) {
  return TagValue(THTMLText::ParseHTML(arguments.Text()).Root());
}

TJson HtmlToText(const TArguments& arguments) {
  return TextValue(THTMLText::HTMLToText(arguments.Text()));
}

TJson Rtf(const TArguments& arguments) {
  return DocumentValue(TRTFText::ParseRTF(arguments.Text()));
}

TJson RtfToText(const TArguments& arguments) {
  return TextValue(TRTFText::RTFToText(arguments.Text()));
}

constexpr TOp Ops[] = {
    {"html", "text: the tag tree", Html},
    {"htmlToText", "text: the text of the tag tree", HtmlToText},
    {"rtf", "text: header fields, font and colour table, text and attribute ranges", Rtf},
    {"rtfToText", "text: the text of the ranges", RtfToText},
};

}  // namespace

std::span<const TOp> MarkupOps() {
  return Ops;
}

}  // namespace orv::eval
