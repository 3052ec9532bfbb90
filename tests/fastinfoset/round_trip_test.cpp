// Objects through Fast Infoset by every way in and out: files, compression, declarations, a
// vocabulary that both sides know. What each sample class keeps is in binding/samples_test.cpp.

#include <string>

#include "tests/samples/all_types_data.h"
#include "tests/samples/envelope.h"
#include "tests/support/temporary_folder.h"
#include <gtest/gtest.h>

#include "qvxml/qvxml.h"

using namespace samples;

namespace {

class CFastInfosetRoundTrip : public testing::Test {
 protected:
  CFastInfosetRoundTrip() : m_object(new CAllTypes) { FillAllTypes(*m_object); }

  void ExpectObject(const CBinaryData& octets, const CSerializationContext& context) {
    const CSmartPtr<CAllTypes> readBack(new CAllTypes);
    readBack->FromXmlStream(octets, context);
    CheckAllTypes(*readBack);
  }

  CSmartPtr<CAllTypes> m_object;
  CSerializationContext m_context;
};

// The names and values of a document of that object, as a generator would list them.
void AddNames(const CXmlElement* element, CFIVocabulary& vocabulary) {
  vocabulary.AddElement(element->GetNamespaceURI().empty() ? "" : "p", element->GetNamespaceURI(),
                        element->GetLocalName());
  for (const CXmlAttribute* attribute : element->GetAttributes()) {
    if (attribute->GetNamespaceURI().empty()) {
      vocabulary.AddAttribute("", "", attribute->GetLocalName());
    }
  }
  if (element->GetText().size() < 20) vocabulary.AddElementValue(element->GetText());
  for (const CXmlElement* child = element->GetFirstElement(); child != nullptr;
       child = child->GetNextSiblingElement()) {
    AddNames(child, vocabulary);
  }
}

}  // namespace

TEST_F(CFastInfosetRoundTrip, ByEveryDeclaration) {
  for (int declaration = FInfoDecl_None; declaration <= FInfoDecl_Version11StandaloneNo;
       ++declaration) {
    SCOPED_TRACE(declaration);
    ExpectObject(m_object->ToFastInfosetStream(static_cast<FInfoDecl>(declaration), m_context),
                 m_context);
  }
}

TEST_F(CFastInfosetRoundTrip, ByFilesAndCompression) {
  const qv_test::TemporaryFolder folder;
  m_context.GetFIContext().SetSuggestedValues();
  for (const CompressionType type :
       {CompressionType_None, CompressionType_GZip, CompressionType_ZLib}) {
    SCOPED_TRACE(type);
    const CBinaryData octets = m_object->ToFastInfosetStream(FInfoDecl_None, m_context, type);
    EXPECT_EQ(CQvZip::IsCompressed(octets), type != CompressionType_None);
    ExpectObject(octets, m_context);
    if (type == CompressionType_ZLib) continue;
    const std::string path = folder.PathOf("all_types.finf");
    m_object->ToFastInfosetFile(path.c_str(), FInfoDecl_None, m_context, type);
    const CSmartPtr<CAllTypes> readBack(new CAllTypes);
    readBack->FromXmlFile(path.c_str());
    CheckAllTypes(*readBack);
  }
}

TEST_F(CFastInfosetRoundTrip, ByAVocabularyThatBothSidesKnow) {
  CXmlDocument document;
  document.LoadXml(m_object->ToXml().c_str());
  CFastInfosetContext& options = m_context.GetFIContext();
  const CBinaryData without = m_object->ToFastInfosetStream(FInfoDecl_None, m_context);
  AddNames(document.GetDocumentElement(), options.GetVocabulary());
  options.SetUseGeneratedVocabulary(true);
  options.SetExternalVocabularyURI("urn:all-types");
  const CBinaryData octets = m_object->ToFastInfosetStream(FInfoDecl_None, m_context);
  EXPECT_LT(octets.GetLength(), without.GetLength());
  ExpectObject(octets, m_context);
}

TEST_F(CFastInfosetRoundTrip, FaultsHaveThePathsOfTheXmlDocument) {
  const char* const xml =
      "<e:envelope xmlns:e='urn:qvxml:samples' xmlns:x='urn:x'><e:header/><e:footer/></e:envelope>";
  const CSmartPtr<CEnvelope> envelope(new CEnvelope);
  std::string expected;
  try {
    envelope->FromXml(xml);
  } catch (const CQvException& exception) {
    expected = exception.GetFullMessage();
  }
  EXPECT_NE(expected, "");
  const char octets[] =
      "\xE0\0\0\1\0\x38\xCF\0e\x10urn:qvxml:samples\xCF\0x\x04urn:x\xF0\x3F\x81\x81\x07"
      "envelope\x3F\x81\x81\x05header\xF0\x3F\x81\x81\x05"
      "footer\xFF\xF0";
  std::string actual;
  try {
    envelope->FromXmlStream(
        CBinaryData(reinterpret_cast<const unsigned char*>(octets), sizeof octets - 1));
  } catch (const CQvException& exception) {
    actual = exception.GetFullMessage();
  }
  EXPECT_EQ(actual, expected);
}
