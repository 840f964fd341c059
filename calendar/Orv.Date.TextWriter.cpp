#include "calendar/Orv.Date.TextWriter.h"

namespace orv {

void TTextWriter::Flush() {
  FOut.append(FBuffer, FUsed);
  FUsed = 0;
}

void TTextWriter::PutLongText(std::u16string_view text) {
  Flush();
  FOut.append(text);
}

}  // namespace orv
