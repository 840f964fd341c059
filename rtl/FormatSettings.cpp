#include "rtl/FormatSettings.h"

namespace rtl {

TFormatSettings& FormatSettings() {
  static TFormatSettings settings;
  return settings;
}

}  // namespace rtl
