#include "platform/Clipboard.h"

#include <SDL.h>

#include <algorithm>
#include <memory>

#include "rtl/Utf8.h"

namespace orv::platform {
namespace {

struct TFree {
  void operator()(char* text) const { SDL_free(text); }
};

bool HasSystem() {
  return SDL_WasInit(SDL_INIT_VIDEO) != 0;
}

}  // namespace

std::u16string TClipboardService::GetText() {
  if (!HasSystem()) return FOwn;
  const std::unique_ptr<char, TFree> text(SDL_GetClipboardText());
  return text == nullptr ? std::u16string() : rtl::FromUtf8(text.get());
}

void TClipboardService::SetText(std::u16string_view text) {
  std::u16string sent(text);
  std::replace(sent.begin(), sent.end(), u'\0', u'\uFFFD');
  const std::string utf8 = rtl::ToUtf8(sent);
  FOwn = rtl::FromUtf8(utf8);
  if (HasSystem()) SDL_SetClipboardText(utf8.c_str());
}

}  // namespace orv::platform
