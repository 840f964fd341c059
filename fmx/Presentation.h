// Which presentation shows which control: the object that has a control's looks and its answers to keys and clicks,
// while the control keeps its model.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "fmx/Control.h"

namespace fmx {

class TStyledPresentation;

// The base of all presentations.
class TPresentationProxy {
 public:
  TPresentationProxy() = default;
  virtual ~TPresentationProxy() = default;
  TPresentationProxy(const TPresentationProxy&) = delete;
  TPresentationProxy& operator=(const TPresentationProxy&) = delete;

  // The name of the most derived class. Static storage.
  virtual std::string_view ClassName() const = 0;
  // The presentation, where it is made of framework controls; null otherwise. Borrowed.
  virtual TStyledPresentation* Presentation() { return nullptr; }
};

// Makes presentations for controls, by the presentation's name: UTF-8, compared unit by unit. Main thread.
class TPresentationProxyFactory {
 public:
  // Makes the presentation of a control, which it borrows.
  using TProxyClass = std::function<std::unique_ptr<TPresentationProxy>(TControl& control)>;

  // The factory of the process. It knows the framework's own presentations from the start.
  static TPresentationProxyFactory& Current();

  // The name under which controls of a class look for theirs: the class name without its T and with "-style" or
  // "-native" behind it. Example: NameOf("TEdit", TControlType::Styled) is "Edit-style".
  static std::string NameOf(std::string_view controlClassName, TControlType type);

  // Adds a presentation. Raises EInvalidOperation for a name that has one.
  void Register(std::string_view name, TProxyClass proxyClass);
  // Takes the place of the one of that name, or is added.
  void Replace(std::string_view name, TProxyClass proxyClass);
  void Replace(std::string_view controlClassName, TControlType type, TProxyClass proxyClass) {
    Replace(NameOf(controlClassName, type), std::move(proxyClass));
  }
  void Unregister(std::string_view name);
  bool IsRegistered(std::string_view name) const { return FClasses.find(name) != FClasses.end(); }

  // A presentation for the control. Raises ENotRegistered where there is none of that name.
  std::unique_ptr<TPresentationProxy> CreatePresentationProxy(std::string_view name, TControl& control) const;

 private:
  std::map<std::string, TProxyClass, std::less<>> FClasses;
};

}  // namespace fmx
