// Generated from samples.xsd.
#ifndef TESTS_SAMPLES_NOTE_H_
#define TESTS_SAMPLES_NOTE_H_

#include <optional>
#include <string>
#include <utility>

#include <qvxml/qvxml.h>

namespace samples {

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

/// A nillable element with content.
class CRemark : public TGeneratedClass<CRemark>, public CNillableObject {
 public:
  explicit CRemark(const char* elementName = "remark");

  const std::optional<std::string>& GetAuthor() const { return m_author; }
  void SetAuthor(std::optional<std::string> value) { m_author = std::move(value); }
  const std::optional<std::string>& GetText() const { return m_text; }
  void SetText(std::optional<std::string> value) { m_text = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kAuthor, kText };

  std::optional<std::string> m_author;
  std::optional<std::string> m_text;
};

/// Nillable values and nillable objects.
class CNote : public TGeneratedClass<CNote> {
 public:
  explicit CNote(const char* elementName = "note");

  const TNillable<CDateTime>& GetDue() const { return m_due; }
  void SetDue(TNillable<CDateTime> value) { m_due = std::move(value); }
  const TNillable<unsigned short>& GetPages() const { return m_pages; }
  void SetPages(TNillable<unsigned short> value) { m_pages = std::move(value); }
  CRemark* GetRemark() const { return m_remark.Ptr(); }
  void SetRemark(CSmartPtr<CRemark> value);
  CRemark* GetReply() const { return m_reply.Ptr(); }
  void SetReply(CSmartPtr<CRemark> value);

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kDue, kPages, kRemark, kReply };

  TNillable<CDateTime> m_due;
  TNillable<unsigned short> m_pages;
  CSmartPtr<CRemark> m_remark;
  CSmartPtr<CRemark> m_reply;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_NOTE_H_
