// How a failure gets the exception that tells where it happened.

#ifndef QVXML_BINDING_METADATA_WRAP_FAILURE_INTERNAL_H_
#define QVXML_BINDING_METADATA_WRAP_FAILURE_INTERNAL_H_

#include <utility>

#include "qvxml/core/exception.h"

namespace QvXmlLib16::detail {

/// Runs `action` and returns its result. A CQvException that leaves it becomes the inner exception
/// of the one that `makeOuter` returns, which is thrown instead, if `isToWrap` says so of it;
/// otherwise it goes on unchanged. The chain is moved, so that one wrapper for each level of a deep
/// document costs linear time.
template <class TAction, class TMakeOuter, class TIsToWrap>
decltype(auto) WrapFailureIf(TIsToWrap&& isToWrap, TAction&& action, TMakeOuter&& makeOuter) {
  try {
    return std::forward<TAction>(action)();
  } catch (CQvException& inner) {
    if (!isToWrap(std::as_const(inner))) throw;
    auto outer = makeOuter();
    CQvException::MoveInto(outer, inner);
    throw outer;
  }
}

/// WrapFailureIf for every CQvException.
template <class TAction, class TMakeOuter>
decltype(auto) WrapFailure(TAction&& action, TMakeOuter&& makeOuter) {
  return WrapFailureIf([](const CQvException&) { return true; }, std::forward<TAction>(action),
                       std::forward<TMakeOuter>(makeOuter));
}

}  // namespace QvXmlLib16::detail

#endif  // QVXML_BINDING_METADATA_WRAP_FAILURE_INTERNAL_H_
