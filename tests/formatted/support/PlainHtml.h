// The rules of the HTML reader written plainly, apart from the library: levels are counted before they are read, and
// every level is a call. Fit for small texts alone.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "formatted/Orv.StdCtrls.HTML.h"

namespace orv::plain {

struct TPlainTag {
  int Type = 0;  // the place of its name in the table of tags
  std::u16string Text;
  std::vector<std::pair<std::u16string, std::u16string>> Params;
  std::vector<TPlainTag> Children;
  friend bool operator==(const TPlainTag&, const TPlainTag&) = default;
};

// The tree; nothing where the text is refused. Raises std::logic_error when a level's count and what is read of it
// differ.
std::optional<TPlainTag> ParsePlainHtml(std::u16string_view text);

std::u16string TextOf(const TPlainTag& tag);

// The library's tree in the same form.
TPlainTag PlainOf(const THTMLText::THTMLTag& tag);

}  // namespace orv::plain
