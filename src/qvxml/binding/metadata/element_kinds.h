// What a member holds: one class for each kind of value, with the constructors that generated code
// sees. element_occurrence.h adds how often it occurs and in which group.
//
// A kind offers to the templates there, beside its constructors:
//   kKind                     for the descriptor
//   Write                     writes the member, false when it has no value
//   Read                      reads the element or group at the cursor and moves the cursor; false,
//                             with the cursor where it was, when that is not this member
//   Claims                    whether it would read an element
// and may replace what CMemberKind says about a mandatory member that is missing.

#ifndef QVXML_BINDING_METADATA_ELEMENT_KINDS_H_
#define QVXML_BINDING_METADATA_ELEMENT_KINDS_H_

#include <string>

#include "qvxml/binding/metadata/element_info.h"
#include "qvxml/support/export.h"

namespace QvXmlLib16Data {

namespace detail {

/// Where a member is being read; the arguments of CElementInfo::ElementFromXml. `optional` lets a
/// model group that is a choice be empty.
struct CMemberReading {
  const QvXmlLib16::CSerializationContext& ctx;
  QvXmlLib16::CXmlGeneratedClass* object;
  QvXmlLib16::CXmlElement* parent;
  QvXmlLib16::CXmlElement** cursor;
  bool optional;
};

/// How most kinds behave when they are mandatory and missing.
class QVXML_API CMemberKind : public CElementInfo {
 protected:
  using CElementInfo::CElementInfo;

  /// Throws the fault that a sequence reports.
  [[noreturn]] void ThrowMissing(const CMemberReading& at) const;
  /// Whether unknown elements in front of the member may be skipped, if the context says so.
  bool SkipsUnknownElements() const { return true; }
  /// Whether the member is satisfied when nothing was read.
  bool NeedsNoElement() const { return false; }
  /// Whether an all-group does not report it missing.
  bool IsAbsenceTolerated() const { return false; }
};

class QVXML_API CPrimMember : public CMemberKind {
 public:
  /// `format` is what QvVariant::ToString is given. The facets are checked when a value is written
  /// that is not the default, not when it is read.
  CPrimMember(const char* name, const char* namespaceUri, int propertyIndex, bool nillable,
              QvXmlLib16::ItemType itemType, const char* format,
              QvXmlLib16::CWhitespaceUtils::WhitespaceRule whitespaceRule,
              const QvXmlLib16::CPrimitiveRestrictions& restrictions, const char* defaultValue);

 protected:
  static constexpr ElementKind kKind = ElementKind::Primitive;
  bool Write(const QvXmlLib16::CSerializationContext& ctx,
             const QvXmlLib16::CXmlGeneratedClass* object, QvXmlLib16::CXmlWriter* writer,
             bool optional) const;
  bool Read(const CMemberReading& at) const;
  static bool Claims(const CElementInfo& info, const QvXmlLib16::CSerializationContext& ctx,
                     const QvXmlLib16::CXmlGeneratedClass* object,
                     QvXmlLib16::CXmlElement* element);
};

/// The property holds the number of the enumeration's value as an i4.
class QVXML_API CEnumMember : public CMemberKind {
 public:
  CEnumMember(const char* name, const char* namespaceUri, int propertyIndex, bool nillable,
              EnumToText enumToText, TextToEnum textToEnum, const char* defaultValue);

 protected:
  static constexpr ElementKind kKind = ElementKind::Enumeration;
  bool Write(const QvXmlLib16::CSerializationContext& ctx,
             const QvXmlLib16::CXmlGeneratedClass* object, QvXmlLib16::CXmlWriter* writer,
             bool optional) const;
  bool Read(const CMemberReading& at) const;
  static bool Claims(const CElementInfo& info, const QvXmlLib16::CSerializationContext& ctx,
                     const QvXmlLib16::CXmlGeneratedClass* object,
                     QvXmlLib16::CXmlElement* element);
};

/// What members that hold a generated object share.
class QVXML_API CObjectMember : public CMemberKind {
 public:
  void PseudoChildAttributeToXml(const QvXmlLib16::CSerializationContext& ctx,
                                 const QvXmlLib16::CXmlGeneratedClass* object,
                                 QvXmlLib16::CXmlWriter* writer) const override;

 protected:
  using CMemberKind::CMemberKind;

  bool IsGroup() const { return m_elementType != QvXmlLib16::XmlElementType_Element; }
  bool Write(const QvXmlLib16::CSerializationContext& ctx,
             const QvXmlLib16::CXmlGeneratedClass* object, QvXmlLib16::CXmlWriter* writer,
             bool optional) const;
  /// Lets a new object read the element at the cursor, or the members of a group from there on, and
  /// stores it if it took something.
  bool ReadIntoNew(const CMemberReading& at,
                   const QvXmlLib16::CSmartPtr<QvXmlLib16::CXmlObjectBase>& child) const;
};

/// A generated object that is made when its element is found.
class QVXML_API CClsMember : public CObjectMember {
 public:
  CClsMember(const char* name, const char* namespaceUri, int propertyIndex,
             QvXmlLib16::XmlElementType elementType, ClassFactory factory, int classId);

 protected:
  static constexpr ElementKind kKind = ElementKind::Class;
  bool Read(const CMemberReading& at) const;
  static bool Claims(const CElementInfo& info, const QvXmlLib16::CSerializationContext& ctx,
                     const QvXmlLib16::CXmlGeneratedClass* object,
                     QvXmlLib16::CXmlElement* element);
  QvXmlLib16::CSmartPtr<QvXmlLib16::CXmlObjectBase> CreateChild() const;

  ClassFactory m_factory;
  int m_classId;
};

/// A generated object that is there from the start, made by Init().
class QVXML_API CHeldClsMember : public CClsMember {
 public:
  /// `mustConsume`: a model group that reads nothing is missing.
  CHeldClsMember(const char* name, const char* namespaceUri, int propertyIndex,
                 QvXmlLib16::XmlElementType elementType, ClassFactory factory, int classId,
                 bool mustConsume);

 protected:
  bool Read(const CMemberReading& at) const;
  bool SkipsUnknownElements() const { return !IsGroup(); }
  bool NeedsNoElement() const { return IsGroup() && !m_mustConsume; }
  // Kept: an element of its own that need not be consumed is tolerated too.
  bool IsAbsenceTolerated() const {
    return m_elementType != QvXmlLib16::XmlElementType_Group && !m_mustConsume;
  }

 private:
  bool m_mustConsume;
};

/// An object whose class depends on the element: the name of the member is not compared.
class QVXML_API CAbsClsMember : public CObjectMember {
 public:
  CAbsClsMember(const char* name, const char* namespaceUri, int propertyIndex,
                QvXmlLib16::XmlElementType elementType, ElementFactory factory);

 protected:
  static constexpr ElementKind kKind = ElementKind::AbstractClass;
  [[noreturn]] void ThrowMissing(const CMemberReading& at) const;
  bool Read(const CMemberReading& at) const;
  static bool Claims(const CElementInfo& info, const QvXmlLib16::CSerializationContext& ctx,
                     const QvXmlLib16::CXmlGeneratedClass* object,
                     QvXmlLib16::CXmlElement* element);

 private:
  QvXmlLib16::CSmartPtr<QvXmlLib16::CXmlObjectBase> CreateChild(
      QvXmlLib16::CXmlElement* element) const;

  ElementFactory m_factory;
};

/// The same with a class id, which nothing depends on: generated code passes it.
class QVXML_API CAbsClsIdMember : public CAbsClsMember {
 public:
  CAbsClsIdMember(const char* name, const char* namespaceUri, int propertyIndex,
                  QvXmlLib16::XmlElementType elementType, ElementFactory factory, int classId);
};

/// Any element of the namespaces that a wildcard admits, held in a CElement. The name "AnyElement"
/// stands for every local name. Its source is element_kind_untyped.cpp.
class QVXML_API CUntpdMember : public CObjectMember {
 public:
  /// `namespaceList` as in CXmlObjectBase::IsNamespaceValid.
  CUntpdMember(const char* name, const char* namespaceUri, int propertyIndex,
               const char* namespaceList, const char* targetNamespace);

 protected:
  static constexpr ElementKind kKind = ElementKind::Untyped;
  [[noreturn]] void ThrowMissing(const CMemberReading& at) const;
  bool Read(const CMemberReading& at) const;
  static bool Claims(const CElementInfo& info, const QvXmlLib16::CSerializationContext& ctx,
                     const QvXmlLib16::CXmlGeneratedClass* object,
                     QvXmlLib16::CXmlElement* element);

 private:
  bool IsAnyName() const;
  bool Admits(const QvXmlLib16::CSerializationContext& ctx,
              const QvXmlLib16::CXmlElement& element) const;

  std::string m_namespaceList;
  std::string m_targetNamespace;
};

/// A collection, whose items may be of any kind.
class QVXML_API CColMember : public CMemberKind {
 public:
  CColMember(const char* name, const char* namespaceUri, int propertyIndex);

 protected:
  using CMemberKind::CMemberKind;

  /// Lets the collection read from the cursor on.
  QvXmlLib16::CSmartPtr<QvXmlLib16::CXmlCollectionBase> ReadItems(const CMemberReading& at) const;
  static bool Claims(const CElementInfo& info, const QvXmlLib16::CSerializationContext& ctx,
                     const QvXmlLib16::CXmlGeneratedClass* object,
                     QvXmlLib16::CXmlElement* element);
};

/// A collection of generated objects.
class QVXML_API CClsColMember : public CColMember {
 public:
  CClsColMember(const char* name, const char* namespaceUri, int propertyIndex,
                QvXmlLib16::XmlElementType elementType);
};

/// A collection of untyped elements. Its source is element_kind_untyped.cpp.
class QVXML_API CUntpdColMember : public CColMember {
 public:
  using CColMember::CColMember;

 protected:
  static bool Claims(const CElementInfo& info, const QvXmlLib16::CSerializationContext& ctx,
                     const QvXmlLib16::CXmlGeneratedClass* object,
                     QvXmlLib16::CXmlElement* element);
};

/// A collection of items of that kind.
template <ElementKind kItems, class TMember = CColMember>
class QVXML_API TColMember : public TMember {
 public:
  using TMember::TMember;

 protected:
  static constexpr ElementKind kKind = kItems;
};

}  // namespace detail

}  // namespace QvXmlLib16Data

#endif  // QVXML_BINDING_METADATA_ELEMENT_KINDS_H_
