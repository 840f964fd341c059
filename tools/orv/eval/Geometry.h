// Numbers, points and rectangles of requests and answers, and the glyphs that they are measured with.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "fmx/Geometry.h"
#include "fmx/TextTypes.h"
#include "tools/orv/eval/Arguments.h"

namespace orv::eval {

inline constexpr TNamed<fmx::TTextAlign> AlignNames[] = {{"Leading", fmx::TTextAlign::Leading},
                                                         {"Center", fmx::TTextAlign::Center},
                                                         {"Trailing", fmx::TTextAlign::Trailing}};

// --- Reading; they raise BadRequest ---

float Float(std::string_view name, const TJson& value);     // finite
float Positive(std::string_view name, const TJson& value);  // above 0
// The value itself.
const TJson& Object(std::string_view name, const TJson& value);
const TJson& Array(std::string_view name, const TJson& value);

template <std::size_t N>
std::array<float, N> Floats(std::string_view name, const TJson& value) {
  if (!value.is_array() || value.size() != N)
    throw BadRequest("'" + std::string(name) + "' must hold " + std::to_string(N) + " numbers");
  std::array<float, N> numbers{};
  for (std::size_t i = 0; i < N; ++i) numbers[i] = Float(name, value[i]);
  return numbers;
}

// --- Writing ---

// The fewest digits that read back to the same float.
TJson Number(float value);
TJson Point(fmx::TPointF point);
TJson Rect(const fmx::TRectF& rect);
TJson Region(const fmx::TRegion& region);

// --- Glyphs ---

enum class TMetrics : std::uint8_t { Fixed, Font };

// The glyphs of a request, in force while it lives: of a fixed size, or those of the fonts.
class TMetricsScope {
 public:
  explicit TMetricsScope(TMetrics metrics);
  ~TMetricsScope();
  TMetricsScope(const TMetricsScope&) = delete;
  TMetricsScope& operator=(const TMetricsScope&) = delete;
};

}  // namespace orv::eval
