// What a generated class implements whose element may be nil.

#ifndef QVXML_BINDING_NILLABLE_H_
#define QVXML_BINDING_NILLABLE_H_

#include "qvxml/support/export.h"

namespace QvXmlLib16 {

/// A class that also derives from this one may carry `xsi:nil` (XML Schema Part 1, section 2.6.2).
/// A nil object writes its attributes and no content. Never destroyed through this interface.
class QVXML_API INillable {
 public:
  virtual bool IsNil() const = 0;
  virtual void SetNil(bool isNil) = 0;

 protected:
  ~INillable() = default;
};

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_NILLABLE_H_
