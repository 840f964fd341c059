// Messages between a control's model, the control and its presentation.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>

#include "fmx/Geometry.h"

namespace fmx {

// Ids of messages: those of a model begin at 1, those of a control at FirstControlMessage. Classes of models and
// controls number their own.
using TMessageId = std::uint16_t;
inline constexpr TMessageId FirstControlMessage = 0x8000;

// What travels with a message; a receiver that answers puts the answer in its place.
using TMessageValue = std::variant<std::monostate, bool, std::int32_t, std::u16string, TPointF, TRectF>;

struct TMessage {
  TMessageId Id = 0;
  TMessageValue Value;

  // The value as a T, or a T of its own where it holds something else.
  template <typename T>
  T As() const {
    const T* const held = std::get_if<T>(&Value);
    return held != nullptr ? *held : T{};
  }
};

class IMessageReceiver {
 public:
  virtual ~IMessageReceiver() = default;
  // At once, within the change that it tells of.
  virtual void Dispatch(TMessage& message) = 0;
};

// The values of a control, apart from its looks: tells one receiver of its changes. Main thread.
class TDataModel {
 public:
  TDataModel() = default;
  virtual ~TDataModel() = default;
  TDataModel(const TDataModel&) = delete;
  TDataModel& operator=(const TDataModel&) = delete;

  // Borrowed; null for none.
  void SetReceiver(IMessageReceiver* receiver) { FReceiver = receiver; }

  // Between these, which nest, messages are dropped: whoever brackets his changes knows of them. An EndUpdate too many
  // does nothing.
  void BeginUpdate() { ++FUpdating; }
  void EndUpdate() {
    if (FUpdating > 0) --FUpdating;
  }
  bool IsUpdating() const { return FUpdating > 0; }

 protected:
  // The answer; the value itself where nobody answered.
  TMessageValue Send(TMessageId id, TMessageValue value = {}) {
    TMessage message{id, std::move(value)};
    if (FReceiver != nullptr && !IsUpdating()) FReceiver->Dispatch(message);
    return std::move(message.Value);
  }
  // Sends where the value is another one.
  template <typename T>
  void Change(T& property, T value, TMessageId id) {
    if (property == value) return;
    property = value;
    Send(id, TMessageValue(std::move(value)));
  }

 private:
  IMessageReceiver* FReceiver = nullptr;
  std::int32_t FUpdating = 0;
};

// Brackets changes of a model as long as it lives.
class TModelUpdate {
 public:
  explicit TModelUpdate(TDataModel& model) : FModel(model) { FModel.BeginUpdate(); }
  ~TModelUpdate() { FModel.EndUpdate(); }
  TModelUpdate(const TModelUpdate&) = delete;
  TModelUpdate& operator=(const TModelUpdate&) = delete;

 private:
  TDataModel& FModel;
};

}  // namespace fmx
