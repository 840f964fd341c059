// What a finger does, as the pointer and gestures.
#pragma once

#include <cstdint>

#include "fmx/Forms.h"
#include "fmx/Timer.h"

namespace fmx {

// One finger at a time. A tap is a click where it began; two of them a double tap too. A finger that rests is a long
// tap, and moves the pointer from then on; one that moves before draws a selection. Places are those of the form. Main
// thread.
class TTouch {
 public:
  // Milliseconds until a resting finger is a long tap, and between two taps that belong together.
  static constexpr std::int32_t LongTapTime = 500;
  static constexpr std::int32_t DoubleTapTime = 300;
  // How far a finger may stray and still rest, in logical units.
  static constexpr float Slop = 12;

  // Borrows the form.
  explicit TTouch(TForm& form);

  void Down(TPointF point);
  void Move(TPointF point);
  void Up(TPointF point);

 private:
  enum class TState : std::uint8_t { Away, Resting, Dragging, LongTapping };

  void Rested();
  void Tap();
  bool IsNear(TPointF a, TPointF b) const;

  TForm& FForm;
  TState FState = TState::Away;
  TPointF FStart;
  TPointF FPlace;
  TPointF FLastTap;
  TTimer FLongTap;
  TTimer FTogether;  // runs while another tap would make two
};

}  // namespace fmx
