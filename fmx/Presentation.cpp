#include "fmx/Presentation.h"

#include <utility>

#include "fmx/Exceptions.h"
#include "fmx/StyledEdit.h"

namespace fmx {

TPresentationProxyFactory& TPresentationProxyFactory::Current() {
  static TPresentationProxyFactory factory = [] {
    TPresentationProxyFactory made;
    made.Replace("TEdit", TControlType::Styled, &TStyledPresentationProxy<TStyledEdit>::Make);
    return made;
  }();
  return factory;
}

std::string TPresentationProxyFactory::NameOf(std::string_view controlClassName, TControlType type) {
  if (controlClassName.starts_with('T')) controlClassName.remove_prefix(1);
  return std::string(controlClassName) + (type == TControlType::Styled ? "-style" : "-native");
}

void TPresentationProxyFactory::Register(std::string_view name, TProxyClass proxyClass) {
  if (!FClasses.emplace(name, std::move(proxyClass)).second)
    throw EInvalidOperation("There is a presentation \"" + std::string(name) + "\" already");
}

void TPresentationProxyFactory::Replace(std::string_view name, TProxyClass proxyClass) {
  FClasses.insert_or_assign(std::string(name), std::move(proxyClass));
}

void TPresentationProxyFactory::Unregister(std::string_view name) {
  const auto found = FClasses.find(name);
  if (found != FClasses.end()) FClasses.erase(found);
}

std::unique_ptr<TPresentationProxy> TPresentationProxyFactory::CreatePresentationProxy(std::string_view name,
                                                                                       TControl& control) const {
  const auto found = FClasses.find(name);
  if (found == FClasses.end() || !found->second)
    throw ENotRegistered("There is no presentation \"" + std::string(name) + "\"");
  return found->second(control);
}

}  // namespace fmx
