// Single-line boxes of the house and of Qt, alike in size, font and text, that answer keys and paint themselves.
#pragma once

#include <QImage>
#include <QLineEdit>
#include <cstdint>
#include <memory>
#include <string_view>

#include "fmx/Bitmap.h"
#include "fmx/Edit.h"
#include "fmx/Form.h"
#include "platform/SoftwareCanvas.h"

namespace orv::bench {

inline constexpr int EditWidth = 400;
inline constexpr int EditHeight = 30;

enum class TEditKey : std::uint8_t { Letter, Backspace, Left, Right };
inline constexpr char16_t TypedLetter = u'\u0628';

// The framework's edit in the system's presentation and built-in style, painted on the software canvas. While it lives
// the canvas and the platform services of the process are its own.
class TOrvBox {
 public:
  // The focus is in the box, its caret before that unit.
  TOrvBox(std::u16string_view text, std::int32_t caret);
  ~TOrvBox();
  TOrvBox(const TOrvBox&) = delete;
  TOrvBox& operator=(const TOrvBox&) = delete;

  void Press(TEditKey key);
  void Paint();

  std::int64_t Units() { return static_cast<std::int64_t>(FEdit->Text().size()); }
  // Whether the picture has more than one colour where the text stands.
  bool ShowsText() const;

 private:
  fmx::TBitmap FPicture;
  std::unique_ptr<platform::TSoftwareCanvas> FCanvas;
  fmx::TCustomForm FForm;
  std::unique_ptr<fmx::TEdit> FEdit;
};

// Qt's line edit, shown on no screen, rendered into a picture.
class TQtBox {
 public:
  TQtBox(std::u16string_view text, std::int32_t caret);
  TQtBox(const TQtBox&) = delete;
  TQtBox& operator=(const TQtBox&) = delete;

  void Press(TEditKey key);
  void Paint();

  std::int64_t Units() const { return FEdit->text().size(); }
  bool ShowsText() const;

 private:
  std::unique_ptr<QLineEdit> FEdit;
  QImage FPicture;
};

}  // namespace orv::bench
