#include "tools/orv/eval/Geometry.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <memory>

#include "fmx/FixedGlyphs.h"
#include "textlayout/Orv.FontGlyphs.h"

namespace orv::eval {

float Float(std::string_view name, const TJson& value) {
  const auto number = value.is_number() ? value.get<float>() : NAN;
  if (!std::isfinite(number)) throw BadRequest("'" + std::string(name) + "' must hold finite numbers");
  return number;
}

float Positive(std::string_view name, const TJson& value) {
  const float number = Float(name, value);
  if (!(number > 0)) throw BadRequest("'" + std::string(name) + "' must be above 0");
  return number;
}

const TJson& Object(std::string_view name, const TJson& value) {
  if (!value.is_object()) throw BadRequest("'" + std::string(name) + "' must be an object");
  return value;
}

const TJson& Array(std::string_view name, const TJson& value) {
  if (!value.is_array()) throw BadRequest("'" + std::string(name) + "' must be an array");
  return value;
}

TJson Number(float value) {
  if (value == std::trunc(value) && std::fabs(value) < 1e9F) return static_cast<std::int64_t>(value);
  char text[32];
  *std::to_chars(text, text + sizeof text - 1, value).ptr = '\0';
  return std::strtod(text, nullptr);
}

TJson Point(fmx::TPointF point) {
  return TJson::array({Number(point.X), Number(point.Y)});
}

TJson Rect(const fmx::TRectF& rect) {
  return TJson::array({Number(rect.Left), Number(rect.Top), Number(rect.Right), Number(rect.Bottom)});
}

TJson Region(const fmx::TRegion& region) {
  TJson rects = TJson::array();
  for (const fmx::TRectF& rect : region) rects.push_back(Rect(rect));
  return rects;
}

TMetricsScope::TMetricsScope(TMetrics metrics) {
  if (metrics == TMetrics::Font) return;
  TFontGlyphManagerOrv::SetCurrent(std::make_unique<TBackEndFontGlyphManager>(std::make_unique<fmx::TFixedGlyphs>()));
}
TMetricsScope::~TMetricsScope() {
  TFontGlyphManagerOrv::SetCurrent(nullptr);
}

}  // namespace orv::eval
