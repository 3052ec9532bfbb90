// The one way in which a failure is put inside another that tells where it happened.

#ifndef QVXML_BINDING_WRAP_FAILURE_INTERNAL_H_
#define QVXML_BINDING_WRAP_FAILURE_INTERNAL_H_

#include <string>
#include <utility>

#include "qvxml/core/exception.h"

namespace QvXmlLib16::detail {

/// Throws `outer` with `caught` and its chain moved into it, so that one wrapper for each level of
/// a deep document stays linear.
template <class TException>
[[noreturn]] void ThrowWrapping(TException outer, CQvException& caught) {
  CQvException::MoveInto(outer, caught);
  throw outer;
}

/// Runs `step` and replaces a CQvException from it by the exception that `makeOuter` makes.
template <class TStep, class TMakeOuter>
[[gnu::always_inline]] inline decltype(auto) WrapFailure(TStep&& step, TMakeOuter&& makeOuter) {
  try {
    return step();
  } catch (CQvException& caught) {
    ThrowWrapping(makeOuter(), caught);
  }
}

}  // namespace QvXmlLib16::detail

#endif  // QVXML_BINDING_WRAP_FAILURE_INTERNAL_H_
