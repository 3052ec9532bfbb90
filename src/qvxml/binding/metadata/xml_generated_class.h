// The base of every generated class: writes and reads an object by walking its metadata.

#ifndef QVXML_BINDING_METADATA_XML_GENERATED_CLASS_H_
#define QVXML_BINDING_METADATA_XML_GENERATED_CLASS_H_

#include "qvxml/binding/element_types.h"
#include "qvxml/binding/xml_object_base.h"
#include "qvxml/core/value/variant.h"
#include "qvxml/support/export.h"

namespace QvXmlLib16Data {
class CAttributeInfo;      // binding/metadata/attribute_info.h
class CElementInfo;        // binding/metadata/element_info.h
class CParentElementInfo;  // binding/metadata/parent_element_info.h
}  // namespace QvXmlLib16Data

namespace QvXmlLib16 {

class CXmlAttribute;  // xml/xml_attribute.h

/// A generated class holds no serialization code: it supplies metadata and access to its
/// properties by index, and this class does the rest.
///
/// Objects are not copied: two would share their children and collections. To copy one, read what
/// it writes.
class QVXML_API CXmlGeneratedClass : public CXmlObjectBase {
 public:
  CXmlGeneratedClass();
  explicit CXmlGeneratedClass(const char* elementName);
  CXmlGeneratedClass(const CXmlGeneratedClass&) = delete;
  CXmlGeneratedClass& operator=(const CXmlGeneratedClass&) = delete;
  ~CXmlGeneratedClass() override;

  CXmlObjectBase* GetBase() override;
  /// Writes `xsi:type` where the class stands under another element's name, then the attributes of
  /// the class and those that its pseudo children carry.
  void AttributesToXml_Int(CXmlWriter* writer, const CSerializationContext& ctx) const override;
  void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* targetNamespace,
                 const CSerializationContext& ctx, bool optional) const override;
  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                           const CSerializationContext& ctx, bool optional) override;

  // Supplied by the generated class.

  /// With `get`, stores the value of property `index` into `value`, else the other way round. An
  /// unset property leaves `value` invalid. A child object or collection travels as a bare pointer;
  /// the class takes its own reference to one that it keeps.
  virtual void AccessProperty(int index, bool get, QvVariant& value) = 0;
  virtual QvXmlLib16Data::CParentElementInfo* GetClassInfo() const = 0;
  /// The members in schema order, ended by a null pointer.
  virtual QvXmlLib16Data::CElementInfo** GetClassElementInfo() const = 0;
  /// The attributes, ended by a null pointer.
  virtual QvXmlLib16Data::CAttributeInfo** GetClassAttributeInfo() const = 0;
  /// Resets every member to its initial state, makes mandatory child objects and collections, and
  /// clears nil. Called before each reading.
  virtual void Init() = 0;

  // For the library and generated code.

  /// AccessProperty for reading.
  void ReadProperty(int index, QvVariant& value) const;
  int GetClassElementInfoCount() const;
  /// Whether the metadata of any member claims `element`; false for null.
  bool IsElementInList(const CSerializationContext& ctx, CXmlElement* element) const;
  /// Whether a member of the class may be absent. That an alternative of a choice is not chosen
  /// does not count.
  bool DoesElementContainOptionalElements() const;

  /// Deletes the metadata of a class and sets the three to null; generated code calls it when its
  /// static metadata go. Nulls are passed over.
  static void CleanMetaData(QvXmlLib16Data::CParentElementInfo*& classInfo,
                            QvXmlLib16Data::CElementInfo**& elements,
                            QvXmlLib16Data::CAttributeInfo**& attributes);

 private:
  /// GetClassInfo, for the steps that everything else follows. Throws CQvException for null.
  const QvXmlLib16Data::CParentElementInfo& RequireClassInfo() const {
    const QvXmlLib16Data::CParentElementInfo* const classInfo = GetClassInfo();
    if (classInfo == nullptr) ThrowNoClassInfo();
    return *classInfo;
  }
  [[noreturn]] static void ThrowNoClassInfo();

  // Writing: generated_class_write.cpp.
  void WriteElement(CXmlWriter* writer, bool isRoot, const char* targetNamespace,
                    const CSerializationContext& ctx, bool optional) const;
  void WriteRootDeclarations(CXmlWriter* writer, const CSerializationContext& ctx) const;
  void WriteMembers(const QvXmlLib16Data::CParentElementInfo& classInfo, CXmlWriter* writer,
                    const CSerializationContext& ctx, bool optional) const;
  void WriteValue(const QvXmlLib16Data::CParentElementInfo& classInfo, CXmlWriter* writer) const;
  void ProcessAttributesToXml(const QvXmlLib16Data::CParentElementInfo& classInfo,
                              const CSerializationContext& ctx, CXmlWriter* writer) const;
  void ProcessElementSeqToXml(const CSerializationContext& ctx, CXmlWriter* writer) const;
  void ProcessElementChoiceToXml(const CSerializationContext& ctx, CXmlWriter* writer,
                                 bool optional) const;
  void ProcessElementAllToXml(const CSerializationContext& ctx, CXmlWriter* writer) const;

  // Reading: generated_class_read.cpp.
  struct CReading;
  CXmlElement* ReadElement(CReading& reading, CXmlElement* cursor);
  CXmlElement* ReadMembers(CReading& reading, CXmlElement* cursor);
  void ReadValue(CReading& reading);
  bool ReadKnownValue(const QvXmlLib16Data::CElementInfo& info, CReading& reading,
                      CXmlElement*& cursor);
  void ProcessAttributesFromXml(CReading& reading);
  size_t ReadAttribute(CReading& reading, QvXmlLib16Data::CAttributeInfo* const* infos,
                       size_t count, size_t expected, CXmlAttribute* attribute);
  void ReadNilAttribute(const QvXmlLib16Data::CParentElementInfo& classInfo,
                        const CXmlAttribute& attribute);
  CXmlElement* ProcessElementSeqFromXml(CReading& reading, CXmlElement* cursor);
  CXmlElement* ProcessElementChoiceFromXml(CReading& reading, CXmlElement* cursor);
  CXmlElement* ProcessElementAllFromXml(CReading& reading, CXmlElement* cursor);
};

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_METADATA_XML_GENERATED_CLASS_H_
