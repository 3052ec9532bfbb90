// Instantiates what the 43 classes are made of.

#include "qvxml/binding/metadata/element_infos.h"

#include "qvxml/binding/metadata/element_occurrence_internal.h"

namespace QvXmlLib16Data::detail {

// clang-format off
template class TMandatory<Group::Seq, CPrimMember>;
template class TMandatory<Group::All, CPrimMember>;
template class TOptional<Group::Seq, CPrimMember>;
template class TOptional<Group::All, CPrimMember>;
template class TOptional<Group::Choice, CPrimMember>;
template class TMandatory<Group::Seq, CEnumMember>;
template class TMandatory<Group::All, CEnumMember>;
template class TOptional<Group::Seq, CEnumMember>;
template class TOptional<Group::All, CEnumMember>;
template class TOptional<Group::Choice, CEnumMember>;
template class TMandatory<Group::Seq, CHeldClsMember>;
template class TMandatory<Group::All, CHeldClsMember>;
template class TOptional<Group::Seq, CClsMember>;
template class TOptional<Group::All, CClsMember>;
template class TOptional<Group::Choice, CClsMember>;
template class TMandatory<Group::Seq, CAbsClsMember>;
template class TMandatory<Group::All, CAbsClsIdMember>;
template class TOptional<Group::Seq, CAbsClsMember>;
template class TOptional<Group::All, CAbsClsMember>;
template class TOptional<Group::Choice, CAbsClsMember>;
template class TMandatory<Group::Seq, CUntpdMember>;
template class TMandatory<Group::All, CUntpdMember>;
template class TOptional<Group::Seq, CUntpdMember>;
template class TOptional<Group::All, CUntpdMember>;
template class TOptional<Group::Choice, CUntpdMember>;
template class TRepeated<Group::Seq, TColMember<ElementKind::Collection>>;
template class TRepeated<Group::All, TColMember<ElementKind::Collection>>;
template class TRepeated<Group::Choice, TColMember<ElementKind::Collection>>;
template class TRepeated<Group::Seq, TColMember<ElementKind::Primitive>>;
template class TRepeated<Group::All, TColMember<ElementKind::Primitive>>;
template class TRepeated<Group::Choice, TColMember<ElementKind::Primitive>>;
template class TRepeated<Group::Seq, TColMember<ElementKind::Enumeration>>;
template class TRepeated<Group::All, TColMember<ElementKind::Enumeration>>;
template class TRepeated<Group::Choice, TColMember<ElementKind::Enumeration>>;
template class TRepeated<Group::Seq, TColMember<ElementKind::Class, CClsColMember>>;
template class TRepeated<Group::All, TColMember<ElementKind::Class, CClsColMember>>;
template class TRepeated<Group::Choice, TColMember<ElementKind::Class, CClsColMember>>;
template class TRepeated<Group::Seq, TColMember<ElementKind::AbstractClass, CClsColMember>>;
template class TRepeated<Group::All, TColMember<ElementKind::AbstractClass, CClsColMember>>;
template class TRepeated<Group::Choice, TColMember<ElementKind::AbstractClass, CClsColMember>>;
template class TRepeated<Group::Seq, TColMember<ElementKind::Untyped, CUntpdColMember>>;
template class TRepeated<Group::All, TColMember<ElementKind::Untyped, CUntpdColMember>>;
template class TRepeated<Group::Choice, TColMember<ElementKind::Untyped, CUntpdColMember>>;

template class TElementMark<Group::Seq, ElementKind::Primitive, ElementOccurrence::Mandatory>;
template class TElementMark<Group::All, ElementKind::Primitive, ElementOccurrence::Mandatory>;
template class TElementMark<Group::Seq, ElementKind::Primitive, ElementOccurrence::Optional>;
template class TElementMark<Group::All, ElementKind::Primitive, ElementOccurrence::Optional>;
template class TElementMark<Group::Choice, ElementKind::Primitive, ElementOccurrence::Optional>;
template class TElementMark<Group::Seq, ElementKind::Enumeration, ElementOccurrence::Mandatory>;
template class TElementMark<Group::All, ElementKind::Enumeration, ElementOccurrence::Mandatory>;
template class TElementMark<Group::Seq, ElementKind::Enumeration, ElementOccurrence::Optional>;
template class TElementMark<Group::All, ElementKind::Enumeration, ElementOccurrence::Optional>;
template class TElementMark<Group::Choice, ElementKind::Enumeration, ElementOccurrence::Optional>;
template class TElementMark<Group::Seq, ElementKind::Class, ElementOccurrence::Mandatory>;
template class TElementMark<Group::All, ElementKind::Class, ElementOccurrence::Mandatory>;
template class TElementMark<Group::Seq, ElementKind::Class, ElementOccurrence::Optional>;
template class TElementMark<Group::All, ElementKind::Class, ElementOccurrence::Optional>;
template class TElementMark<Group::Choice, ElementKind::Class, ElementOccurrence::Optional>;
template class TElementMark<Group::Seq, ElementKind::AbstractClass, ElementOccurrence::Mandatory>;
template class TElementMark<Group::All, ElementKind::AbstractClass, ElementOccurrence::Mandatory>;
template class TElementMark<Group::Seq, ElementKind::AbstractClass, ElementOccurrence::Optional>;
template class TElementMark<Group::All, ElementKind::AbstractClass, ElementOccurrence::Optional>;
template class TElementMark<Group::Choice, ElementKind::AbstractClass, ElementOccurrence::Optional>;
template class TElementMark<Group::Seq, ElementKind::Untyped, ElementOccurrence::Mandatory>;
template class TElementMark<Group::All, ElementKind::Untyped, ElementOccurrence::Mandatory>;
template class TElementMark<Group::Seq, ElementKind::Untyped, ElementOccurrence::Optional>;
template class TElementMark<Group::All, ElementKind::Untyped, ElementOccurrence::Optional>;
template class TElementMark<Group::Choice, ElementKind::Untyped, ElementOccurrence::Optional>;
template class TElementMark<Group::Seq, ElementKind::Collection, ElementOccurrence::Repeated>;
template class TElementMark<Group::All, ElementKind::Collection, ElementOccurrence::Repeated>;
template class TElementMark<Group::Choice, ElementKind::Collection, ElementOccurrence::Repeated>;
template class TElementMark<Group::Seq, ElementKind::Primitive, ElementOccurrence::Repeated>;
template class TElementMark<Group::All, ElementKind::Primitive, ElementOccurrence::Repeated>;
template class TElementMark<Group::Choice, ElementKind::Primitive, ElementOccurrence::Repeated>;
template class TElementMark<Group::Seq, ElementKind::Enumeration, ElementOccurrence::Repeated>;
template class TElementMark<Group::All, ElementKind::Enumeration, ElementOccurrence::Repeated>;
template class TElementMark<Group::Choice, ElementKind::Enumeration, ElementOccurrence::Repeated>;
template class TElementMark<Group::Seq, ElementKind::Class, ElementOccurrence::Repeated>;
template class TElementMark<Group::All, ElementKind::Class, ElementOccurrence::Repeated>;
template class TElementMark<Group::Choice, ElementKind::Class, ElementOccurrence::Repeated>;
template class TElementMark<Group::Seq, ElementKind::AbstractClass, ElementOccurrence::Repeated>;
template class TElementMark<Group::All, ElementKind::AbstractClass, ElementOccurrence::Repeated>;
template class TElementMark<Group::Choice, ElementKind::AbstractClass, ElementOccurrence::Repeated>;
template class TElementMark<Group::Seq, ElementKind::Untyped, ElementOccurrence::Repeated>;
template class TElementMark<Group::All, ElementKind::Untyped, ElementOccurrence::Repeated>;
template class TElementMark<Group::Choice, ElementKind::Untyped, ElementOccurrence::Repeated>;
// clang-format on

}  // namespace QvXmlLib16Data::detail
