// Objects through every format, copies, events and failures, while memory is short.

#include "tests/trust/short_memory.h"

#include <cstdio>
#include <memory>
#include <new>
#include <string>

#include "tests/samples/all_types_data.h"
#include "tests/samples/contact.h"
#include "tests/samples/envelope.h"
#include "tests/samples/measure.h"
#include "tests/samples/note.h"
#include "tests/samples/payment.h"
#include "tests/samples/sample_documents.h"
#include "tests/samples/settings.h"
#include "tests/samples/shapes.h"
#include "tests/samples/tree.h"
#include "tests/support/temporary_folder.h"
#include "tests/trust/failing_allocator.h"
#include "tests/trust/formats.h"
#include <gtest/gtest.h>

#include "qvxml/qvxml.h"

using namespace samples;
using namespace qv_test;

namespace {

class ShortMemory : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    MakeSampleMetaData();
    // Makes the locale of all messages, which then stays.
    FormatString("%d", 1);
  }
  static void TearDownTestSuite() { s_folder.reset(); }
  void SetUp() override { s_folder = std::make_unique<TemporaryFolder>(); }
  void TearDown() override { std::printf("%ld failing allocations so far\n", CountInjections()); }

 public:
  // Made and removed with enough memory.
  static std::unique_ptr<TemporaryFolder> s_folder;
};

std::unique_ptr<TemporaryFolder> ShortMemory::s_folder;

std::string ToString(const CBinaryData& bytes) {
  return std::string(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength());
}

std::string Write(const CXmlObjectBase& object) {
  CSerializationContext ctx;
  ctx.SetDefaultNamespaceURI("urn:qvxml:samples");
  return object.ToXml(false, false, EOL_LF, ctx);
}

using Maker = CSmartPtr<CXmlObjectBase> (*)();

// An object, or one that is yet to be read, with a format.
class FormatSubject : public Subject {
 public:
  FormatSubject(const Format& format, CSmartPtr<CXmlObjectBase> object)
      : m_format(format), m_object(std::move(object)) {
    m_ctx.SetDefaultNamespaceURI("urn:qvxml:samples");
    format.prepare(m_ctx);
    if (format.isFile) {
      m_path = ShortMemory::s_folder->PathOf("file");
      WriteFile(m_path, "old");
    }
  }

 protected:
  void Write() { m_format.write(*m_object, m_ctx, m_path, m_bytes); }

  const Format& m_format;
  CSmartPtr<CXmlObjectBase> m_object;
  CSerializationContext m_ctx;
  std::string m_path;
  CBinaryData m_bytes;
};

class WriteSubject : public FormatSubject {
 public:
  using FormatSubject::FormatSubject;
  void Act() override { Write(); }
  std::string Result() const override {
    CheckFolder();
    return m_format.isFile ? ReadFile(m_path) : ToString(m_bytes);
  }
  void CheckAfterFailure() const override {
    CheckFolder();
    if (m_format.isWholeFile) {
      EXPECT_EQ(ReadFile(m_path), "old");
    }
  }

 private:
  void CheckFolder() const {
    if (m_format.isFile) {
      EXPECT_EQ(ShortMemory::s_folder->CountEntries(), 1);
    }
  }
};

class ReadSubject : public FormatSubject {
 public:
  ReadSubject(const Format& format, const CSmartPtr<CXmlObjectBase>& source, Maker make)
      : FormatSubject(format, source) {
    Write();
    m_object = make();
  }
  void Act() override { m_format.read(*m_object, m_ctx, m_path, m_bytes); }
  std::string Result() const override { return ::Write(*m_object); }
};

CSmartPtr<CXmlObjectBase> ReadDocument(const SampleDocument& document) {
  CSmartPtr<CXmlObjectBase> object = document.make();
  object->FromXml(InNamespace(document.xml).c_str());
  return object;
}

CSmartPtr<CXmlObjectBase> MakeAllTypes() {
  const CSmartPtr<CAllTypes> object(new CAllTypes);
  FillAllTypes(*object);
  return object;
}

void RunThrough(const Format& format, const std::string& name, const SampleDocument& document,
                long points) {
  const auto source = [&] {
    return document.xml != nullptr ? ReadDocument(document) : MakeAllTypes();
  };
  RunShortOfMemory({name + " to " + format.name,
                    [&] { return std::make_unique<WriteSubject>(format, source()); }},
                   points);
  // Some modes and sizes cannot be written.
  const std::string failure = DescribeFailureOf([&] { WriteSubject(format, source()).Act(); });
  if (!failure.empty()) return;
  RunShortOfMemory({name + " from " + format.name,
                    [&] { return std::make_unique<ReadSubject>(format, source(), document.make); }},
                   points);
}

TEST_F(ShortMemory, SampleDocumentsInEveryFormat) {
  for (const Format& format : AllFormats()) {
    for (const SampleDocument& document : SampleDocuments()) {
      RunThrough(format, document.xml, document, 6);
    }
  }
}

TEST_F(ShortMemory, AllTypesInEveryFormat) {
  for (const Format& format : AllFormats()) {
    RunThrough(format, "all types", {Make<CAllTypes>, nullptr}, 40);
  }
}

}  // namespace
