// The metadata classes that generated code constructs for child elements.
//
// A name is "CElementInfo", the group, the kind of value and the occurrence:
//
//   group       Seq | Choice | All
//   kind        Prim    a primitive value
//               Enum    an enumeration
//               Cls     a generated object, or the members of a model group
//               AbsCls  a generated object whose class depends on the element
//               Untpd   an element of a wildcard
//               nothing, with Col only: a collection of any kind
//   occurrence  Mnd | Opt | Col
//
// A choice has no Mnd. The constructors are those of the kind; all
// begin with name, namespace and property index.

#ifndef QVXML_BINDING_METADATA_ELEMENT_INFOS_H_
#define QVXML_BINDING_METADATA_ELEMENT_INFOS_H_

#include "qvxml/binding/metadata/element_occurrence.h"
#include "qvxml/support/export.h"

namespace QvXmlLib16Data {

// clang-format off
class QVXML_API CElementInfoSeqPrimMnd : public detail::TMandatory<detail::Group::Seq, detail::CPrimMember> { public: using TMandatory::TMandatory; };
class QVXML_API CElementInfoAllPrimMnd : public detail::TMandatory<detail::Group::All, detail::CPrimMember> { public: using TMandatory::TMandatory; };
class QVXML_API CElementInfoSeqPrimOpt : public detail::TOptional<detail::Group::Seq, detail::CPrimMember> { public: using TOptional::TOptional; };
class QVXML_API CElementInfoAllPrimOpt : public detail::TOptional<detail::Group::All, detail::CPrimMember> { public: using TOptional::TOptional; };
class QVXML_API CElementInfoChoicePrimOpt : public detail::TOptional<detail::Group::Choice, detail::CPrimMember> { public: using TOptional::TOptional; };
class QVXML_API CElementInfoSeqEnumMnd : public detail::TMandatory<detail::Group::Seq, detail::CEnumMember> { public: using TMandatory::TMandatory; };
class QVXML_API CElementInfoAllEnumMnd : public detail::TMandatory<detail::Group::All, detail::CEnumMember> { public: using TMandatory::TMandatory; };
class QVXML_API CElementInfoSeqEnumOpt : public detail::TOptional<detail::Group::Seq, detail::CEnumMember> { public: using TOptional::TOptional; };
class QVXML_API CElementInfoAllEnumOpt : public detail::TOptional<detail::Group::All, detail::CEnumMember> { public: using TOptional::TOptional; };
class QVXML_API CElementInfoChoiceEnumOpt : public detail::TOptional<detail::Group::Choice, detail::CEnumMember> { public: using TOptional::TOptional; };
class QVXML_API CElementInfoSeqClsMnd : public detail::TMandatory<detail::Group::Seq, detail::CHeldClsMember> { public: using TMandatory::TMandatory; };
class QVXML_API CElementInfoAllClsMnd : public detail::TMandatory<detail::Group::All, detail::CHeldClsMember> { public: using TMandatory::TMandatory; };
class QVXML_API CElementInfoSeqClsOpt : public detail::TOptional<detail::Group::Seq, detail::CClsMember> { public: using TOptional::TOptional; };
class QVXML_API CElementInfoAllClsOpt : public detail::TOptional<detail::Group::All, detail::CClsMember> { public: using TOptional::TOptional; };
class QVXML_API CElementInfoChoiceClsOpt : public detail::TOptional<detail::Group::Choice, detail::CClsMember> { public: using TOptional::TOptional; };
class QVXML_API CElementInfoSeqAbsClsMnd : public detail::TMandatory<detail::Group::Seq, detail::CAbsClsMember> { public: using TMandatory::TMandatory; };
class QVXML_API CElementInfoAllAbsClsMnd : public detail::TMandatory<detail::Group::All, detail::CAbsClsIdMember> { public: using TMandatory::TMandatory; };
class QVXML_API CElementInfoSeqAbsClsOpt : public detail::TOptional<detail::Group::Seq, detail::CAbsClsMember> { public: using TOptional::TOptional; };
class QVXML_API CElementInfoAllAbsClsOpt : public detail::TOptional<detail::Group::All, detail::CAbsClsMember> { public: using TOptional::TOptional; };
class QVXML_API CElementInfoChoiceAbsClsOpt : public detail::TOptional<detail::Group::Choice, detail::CAbsClsMember> { public: using TOptional::TOptional; };
class QVXML_API CElementInfoSeqUntpdMnd : public detail::TMandatory<detail::Group::Seq, detail::CUntpdMember> { public: using TMandatory::TMandatory; };
class QVXML_API CElementInfoAllUntpdMnd : public detail::TMandatory<detail::Group::All, detail::CUntpdMember> { public: using TMandatory::TMandatory; };
class QVXML_API CElementInfoSeqUntpdOpt : public detail::TOptional<detail::Group::Seq, detail::CUntpdMember> { public: using TOptional::TOptional; };
class QVXML_API CElementInfoAllUntpdOpt : public detail::TOptional<detail::Group::All, detail::CUntpdMember> { public: using TOptional::TOptional; };
class QVXML_API CElementInfoChoiceUntpdOpt : public detail::TOptional<detail::Group::Choice, detail::CUntpdMember> { public: using TOptional::TOptional; };
class QVXML_API CElementInfoSeqCol : public detail::TRepeated<detail::Group::Seq, detail::TColMember<ElementKind::Collection>> { public: using TRepeated::TRepeated; };
class QVXML_API CElementInfoAllCol : public detail::TRepeated<detail::Group::All, detail::TColMember<ElementKind::Collection>> { public: using TRepeated::TRepeated; };
class QVXML_API CElementInfoChoiceCol : public detail::TRepeated<detail::Group::Choice, detail::TColMember<ElementKind::Collection>> { public: using TRepeated::TRepeated; };
class QVXML_API CElementInfoSeqPrimCol : public detail::TRepeated<detail::Group::Seq, detail::TColMember<ElementKind::Primitive>> { public: using TRepeated::TRepeated; };
class QVXML_API CElementInfoAllPrimCol : public detail::TRepeated<detail::Group::All, detail::TColMember<ElementKind::Primitive>> { public: using TRepeated::TRepeated; };
class QVXML_API CElementInfoChoicePrimCol : public detail::TRepeated<detail::Group::Choice, detail::TColMember<ElementKind::Primitive>> { public: using TRepeated::TRepeated; };
class QVXML_API CElementInfoSeqEnumCol : public detail::TRepeated<detail::Group::Seq, detail::TColMember<ElementKind::Enumeration>> { public: using TRepeated::TRepeated; };
class QVXML_API CElementInfoAllEnumCol : public detail::TRepeated<detail::Group::All, detail::TColMember<ElementKind::Enumeration>> { public: using TRepeated::TRepeated; };
class QVXML_API CElementInfoChoiceEnumCol : public detail::TRepeated<detail::Group::Choice, detail::TColMember<ElementKind::Enumeration>> { public: using TRepeated::TRepeated; };
class QVXML_API CElementInfoSeqClsCol : public detail::TRepeated<detail::Group::Seq, detail::TColMember<ElementKind::Class, detail::CClsColMember>> { public: using TRepeated::TRepeated; };
class QVXML_API CElementInfoAllClsCol : public detail::TRepeated<detail::Group::All, detail::TColMember<ElementKind::Class, detail::CClsColMember>> { public: using TRepeated::TRepeated; };
class QVXML_API CElementInfoChoiceClsCol : public detail::TRepeated<detail::Group::Choice, detail::TColMember<ElementKind::Class, detail::CClsColMember>> { public: using TRepeated::TRepeated; };
class QVXML_API CElementInfoSeqAbsClsCol : public detail::TRepeated<detail::Group::Seq, detail::TColMember<ElementKind::AbstractClass, detail::CClsColMember>> { public: using TRepeated::TRepeated; };
class QVXML_API CElementInfoAllAbsClsCol : public detail::TRepeated<detail::Group::All, detail::TColMember<ElementKind::AbstractClass, detail::CClsColMember>> { public: using TRepeated::TRepeated; };
class QVXML_API CElementInfoChoiceAbsClsCol : public detail::TRepeated<detail::Group::Choice, detail::TColMember<ElementKind::AbstractClass, detail::CClsColMember>> { public: using TRepeated::TRepeated; };
class QVXML_API CElementInfoSeqUntpdCol : public detail::TRepeated<detail::Group::Seq, detail::TColMember<ElementKind::Untyped, detail::CUntpdColMember>> { public: using TRepeated::TRepeated; };
class QVXML_API CElementInfoAllUntpdCol : public detail::TRepeated<detail::Group::All, detail::TColMember<ElementKind::Untyped, detail::CUntpdColMember>> { public: using TRepeated::TRepeated; };
class QVXML_API CElementInfoChoiceUntpdCol : public detail::TRepeated<detail::Group::Choice, detail::TColMember<ElementKind::Untyped, detail::CUntpdColMember>> { public: using TRepeated::TRepeated; };
// clang-format on

}  // namespace QvXmlLib16Data

#endif  // QVXML_BINDING_METADATA_ELEMENT_INFOS_H_
