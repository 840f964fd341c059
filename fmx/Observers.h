// What a control tells those who bind it to data, and asks of them.
#pragma once

#include <cstdint>

namespace fmx {

// By the number of its kind.
enum class TObserverKind : std::uint8_t { EditLink = 1, ControlValue = 4 };

// A link to a field: it may refuse that the control is edited.
class IEditLinkObserver {
 public:
  virtual ~IEditLinkObserver() = default;
  // Whether the field may be edited now; makes it so.
  virtual bool Edit() = 0;
  virtual bool IsEditing() const = 0;
  virtual bool IsReadOnly() const = 0;
  virtual bool IsValidChar(char16_t c) const = 0;
  // The control's value is another one than the field's.
  virtual void Modified() = 0;
  // The field takes the value; the control takes the field's value back.
  virtual void Update() = 0;
  virtual void Reset() = 0;
};

// A link to an expression of the control's value.
class IControlValueObserver {
 public:
  virtual ~IControlValueObserver() = default;
  virtual void Modified() = 0;
  virtual void Update() = 0;
};

// The observers of one control, borrowed; null for none, as at first. Without an observer the operations do nothing,
// and the questions are answered as if everything were allowed. Main thread.
class TObservers {
 public:
  IEditLinkObserver* EditLink = nullptr;
  IControlValueObserver* ControlValue = nullptr;

  bool IsObserving(TObserverKind kind) const {
    return kind == TObserverKind::EditLink ? EditLink != nullptr : ControlValue != nullptr;
  }

  bool EditLinkEdit() const { return EditLink == nullptr || EditLink->Edit(); }
  bool EditLinkIsEditing() const { return EditLink != nullptr && EditLink->IsEditing(); }
  bool EditLinkIsValidChar(char16_t c) const { return EditLink == nullptr || EditLink->IsValidChar(c); }
  void EditLinkModified() const {
    if (EditLink != nullptr) EditLink->Modified();
  }
  void EditLinkUpdate() const {
    if (EditLink != nullptr) EditLink->Update();
  }
  void EditLinkReset() const {
    if (EditLink != nullptr) EditLink->Reset();
  }
  void ControlValueModified() const {
    if (ControlValue != nullptr) ControlValue->Modified();
  }
  void ControlValueUpdate() const {
    if (ControlValue != nullptr) ControlValue->Update();
  }
};

}  // namespace fmx
