// Generated from samples.xsd.

#ifndef TESTS_SAMPLES_NOTE_H_
#define TESTS_SAMPLES_NOTE_H_

#include "tests/samples/schema.h"

namespace samples {

/// remarkType, of nillable elements.
class CRemarkType : public CXmlGeneratedClass, public CNillableObject {
 public:
  const std::optional<std::string>& GetText() const { return m_text; }
  void SetText(std::optional<std::string> value) { m_text = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;

 protected:
  explicit CRemarkType(const char* elementName);
  /// The element metadata of the type, under the name of an element.
  static CClassMetaData MakeMetaData(const char* elementName);

  enum Property : int { kAuthor, kText };

 private:
  std::optional<std::string> m_author;
  std::optional<std::string> m_text;
};

/// Element remark.
class CRemark : public TGeneratedClass<CRemark, CRemarkType> {
 public:
  explicit CRemark(const char* elementName = "remark") : TGeneratedClass(elementName) {}

  static const CClassMetaData& GetMetaData();
};

/// Element reply.
class CReply : public TGeneratedClass<CReply, CRemarkType> {
 public:
  explicit CReply(const char* elementName = "reply") : TGeneratedClass(elementName) {}

  static const CClassMetaData& GetMetaData();
};

/// Nillable values and nillable objects.
class CNote : public TGeneratedClass<CNote> {
 public:
  explicit CNote(const char* elementName = "note");

  const TNillable<CDateTime>& GetDue() const { return m_due; }
  const TNillable<unsigned short>& GetPages() const { return m_pages; }
  CRemark* GetRemark() const { return m_remark.Ptr(); }
  void SetRemark(CSmartPtr<CRemark> value);
  void SetReply(CSmartPtr<CReply> value);

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kDue, kPages, kRemark, kReply };

  TNillable<CDateTime> m_due;
  TNillable<unsigned short> m_pages;
  CSmartPtr<CRemark> m_remark;
  CSmartPtr<CReply> m_reply;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_NOTE_H_
