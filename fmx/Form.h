// The framework's own form.
#pragma once

#include "fmx/Component.h"
#include "fmx/Root.h"

namespace fmx {

// A root that is a component and a form. It draws nothing and has no window of its own; the window service gives it one
// (fmx/WindowServices.h). The components it owns find it whole while it frees
// them.
class TCustomForm : public TComponent, public IRoot {
 public:
  TCustomForm() = default;
  ~TCustomForm() override;

  TComponent* GetObject() override { return this; }

  TBiDiMode GetBiDiMode() const override { return FBiDiMode; }
  void SetBiDiMode(TBiDiMode mode) { FBiDiMode = mode; }

  TFormState GetFormState() const override { return FFormState; }
  void SetFormState(TFormState state) { FFormState = state; }

  TCanvas* GetCanvas() const override { return FCanvas; }
  // Borrowed; set it to null before the canvas goes.
  void SetCanvas(TCanvas* canvas) { FCanvas = canvas; }

  TFocusable* GetFocused() const override { return FFocus.Control(); }
  void SetFocused(TFocusable* control) override { FFocus.Set(control); }

  void KeyDown(TKeyEvent& event) override { FFocus.KeyDown(event); }

  // Makes it the active form, and tells whether it is.
  void Activate();
  bool IsActive() const;

 private:
  TBiDiMode FBiDiMode = TBiDiMode::LeftToRight;
  TFormState FFormState;
  TCanvas* FCanvas = nullptr;
  TRootFocus FFocus;
};

}  // namespace fmx
