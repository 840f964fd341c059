// Captions in the language of the application.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace fmx {

using TTranslator = std::function<std::u16string(std::u16string_view text)>;

// The text as the application's translator has it; without a translator, the text itself. Captions of the framework
// pass through it when they are about to be shown. Example: item.Text = Translate(SEditCut).
std::u16string Translate(std::u16string_view text);

// What Translate asks from now on; an empty one leaves texts as they are. It must give a text it does not know back
// unchanged. Main thread, like Translate.
void SetTranslator(TTranslator translator);

}  // namespace fmx
