// How often a member occurs, and what the group around it makes of that, over any kind of value.
// The bodies are in element_occurrence_internal.h.

#ifndef QVXML_BINDING_METADATA_ELEMENT_OCCURRENCE_H_
#define QVXML_BINDING_METADATA_ELEMENT_OCCURRENCE_H_

#include "qvxml/binding/element_types.h"
#include "qvxml/binding/metadata/element_kinds.h"
#include "qvxml/support/export.h"

namespace QvXmlLib16Data::detail {

/// Short names for the group axis.
struct Group {
  static constexpr auto Seq = QvXmlLib16::XmlElementGroupType_Sequence;
  static constexpr auto Choice = QvXmlLib16::XmlElementGroupType_Choice;
  static constexpr auto All = QvXmlLib16::XmlElementGroupType_All;
};

/// Tells the base of a metadata object what its class is, and registers the object with the
/// instance monitor under the name that the axes spell.
template <QvXmlLib16::XmlElementGroupType kGroup, ElementKind kKind, ElementOccurrence kOccurrence>
class QVXML_API TElementMark {
 public:
  TElementMark(CElementInfo& info, ClaimTest claims) noexcept;
  ~TElementMark();
  TElementMark(const TElementMark&) = delete;
  TElementMark& operator=(const TElementMark&) = delete;
};

/// A kind with its place in a group. The mark is a member because the constructors are inherited.
template <QvXmlLib16::XmlElementGroupType kGroup, class TKind, ElementOccurrence kOccurrence>
class QVXML_API TPlaced : public TKind {
 public:
  using TKind::TKind;

 private:
  TElementMark<kGroup, TKind::kKind, kOccurrence> m_mark{*this, &TKind::Claims};
};

/// A member that must be there. In a sequence its absence is a fault at once, or ends a sequence
/// that shares its element with others; in an all-group Validate reports it.
template <QvXmlLib16::XmlElementGroupType kGroup, class TKind>
class QVXML_API TMandatory : public TPlaced<kGroup, TKind, ElementOccurrence::Mandatory> {
 public:
  using TPlaced<kGroup, TKind, ElementOccurrence::Mandatory>::TPlaced;

  bool ElementToXml(const QvXmlLib16::CSerializationContext& ctx,
                    const QvXmlLib16::CXmlGeneratedClass* object,
                    QvXmlLib16::CXmlWriter* writer) const override;
  bool ElementFromXml(const QvXmlLib16::CSerializationContext& ctx,
                      QvXmlLib16::CXmlGeneratedClass* object, QvXmlLib16::CXmlElement* parent,
                      QvXmlLib16::CXmlElement** cursor, const char* parentNamespace,
                      QvXmlLib16::XmlElementType parentElementType) override;
  bool Validate(const QvXmlLib16::CSerializationContext& ctx,
                const QvXmlLib16::CXmlGeneratedClass* object, bool found,
                bool check) const override;

 private:
  // Once a sequence did not find the member at the cursor.
  bool ReadPastOthers(const CMemberReading& at, bool hasParentOwnElement) const;
};

/// A member that may be absent, or one alternative of a choice.
template <QvXmlLib16::XmlElementGroupType kGroup, class TKind>
class QVXML_API TOptional : public TPlaced<kGroup, TKind, ElementOccurrence::Optional> {
 public:
  using TPlaced<kGroup, TKind, ElementOccurrence::Optional>::TPlaced;

  bool ElementToXml(const QvXmlLib16::CSerializationContext& ctx,
                    const QvXmlLib16::CXmlGeneratedClass* object,
                    QvXmlLib16::CXmlWriter* writer) const override;
  bool ElementFromXml(const QvXmlLib16::CSerializationContext& ctx,
                      QvXmlLib16::CXmlGeneratedClass* object, QvXmlLib16::CXmlElement* parent,
                      QvXmlLib16::CXmlElement** cursor, const char* parentNamespace,
                      QvXmlLib16::XmlElementType parentElementType) override;
  bool Validate(const QvXmlLib16::CSerializationContext& ctx,
                const QvXmlLib16::CXmlGeneratedClass* object, bool found,
                bool check) const override;
};

/// A collection, which checks its number of items itself: on writing also when it is empty, unless
/// it is an alternative that was not chosen; on reading as soon as it has read, in an all-group in
/// Validate.
template <QvXmlLib16::XmlElementGroupType kGroup, class TKind>
class QVXML_API TRepeated : public TPlaced<kGroup, TKind, ElementOccurrence::Repeated> {
 public:
  using TPlaced<kGroup, TKind, ElementOccurrence::Repeated>::TPlaced;

  bool ElementToXml(const QvXmlLib16::CSerializationContext& ctx,
                    const QvXmlLib16::CXmlGeneratedClass* object,
                    QvXmlLib16::CXmlWriter* writer) const override;
  bool ElementFromXml(const QvXmlLib16::CSerializationContext& ctx,
                      QvXmlLib16::CXmlGeneratedClass* object, QvXmlLib16::CXmlElement* parent,
                      QvXmlLib16::CXmlElement** cursor, const char* parentNamespace,
                      QvXmlLib16::XmlElementType parentElementType) override;
  bool Validate(const QvXmlLib16::CSerializationContext& ctx,
                const QvXmlLib16::CXmlGeneratedClass* object, bool found,
                bool check) const override;
};

}  // namespace QvXmlLib16Data::detail

#endif  // QVXML_BINDING_METADATA_ELEMENT_OCCURRENCE_H_
