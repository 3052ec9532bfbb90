// What registering generated code does to a process; each case runs in one of its own.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/binding/driven_class.h"
#include <gtest/gtest.h>

#include "qvxml/licence/licence_check.h"
#include "qvxml/xml/untyped/element.h"
#include "qvxml/xml/xml_document.h"

using namespace QvXmlLib16;
using qv_test::ChainOf;

namespace {

constexpr char kBanner[] =
    "QvXmlLib16: the generated code in this program is for evaluation only.\n";

std::string WriteElement(bool includeDocHeader) {
  const CSmartPtr<CElement> element(new CElement("r"));
  return element->ToXml(includeDocHeader, true);
}

// Ends the process with a line for each entry point that does not throw the message.
[[noreturn]] void TryEntryPoints(const std::string& message) {
  const CSmartPtr<CElement> object(new CElement("r"));
  CXmlDocument document;
  document.LoadXml("<r/>");
  unsigned char bytes[] = "<r/>";
  const std::string expected = message.empty() ? "-" : "CQvException: " + message;
  const auto expect = [&](const char* name, const auto& call) {
    const std::string chain = ChainOf(call);
    if (chain != expected) std::fprintf(stderr, "%s: %s\n", name, chain.c_str());
  };
  expect("ToXml", [&] { object->ToXml(); });
  expect("ToXmlStream", [&] { object->ToXmlStream(); });
  expect("ToXmlFile", [&] { object->ToXmlFile("/dev/null"); });
  expect("FromXml", [&] { object->FromXml("<r/>"); });
  expect("FromXml wide", [&] { object->FromXml(L"<r/>"); });
  expect("FromXmlStream", [&] { object->FromXmlStream(bytes, sizeof bytes - 1); });
  expect("FromXmlStream data",
         [&] { object->FromXmlStream(CBinaryData(bytes, sizeof bytes - 1)); });
  expect("FromXmlElement", [&] { object->FromXmlElement(document.GetDocumentElement()); });
  if (!message.empty()) {
    expect("FromXmlFile", [&] { object->FromXmlFile("/nowhere"); });
    expect("FromXmlElement holder", [&] { object->FromXmlElement(object.Ptr()); });
  }
  std::fputs("done\n", stderr);
  std::exit(0);
}

// The whole of stderr must match.
#define EXPECT_STDERR(statement, text) \
  EXPECT_EXIT(statement, testing::ExitedWithCode(0), testing::Eq(std::string(text)))

class LicenceDeathTest : public testing::Test {};

TEST_F(LicenceDeathTest, NothingNeedsToBeRegistered) {
  EXPECT_STDERR(
      {
        if (WriteElement(false) != "<r/>\n" || GetEvaluationComment() != nullptr) std::exit(1);
        TryEntryPoints("");
      },
      "done\n");
}

TEST_F(LicenceDeathTest, LicensedCodeAddsNothing) {
  EXPECT_STDERR(
      {
        RegisterGeneratedCode(16, LicenceKind_Licensed);
        if (WriteElement(false) != "<r/>\n") std::exit(1);
        TryEntryPoints("");
      },
      "done\n");
}

TEST_F(LicenceDeathTest, EvaluationShowsOneBannerAndACommentInEachDocument) {
  EXPECT_STDERR(
      {
        RegisterGeneratedCode(16, LicenceKind_Evaluation);
        RegisterGeneratedCode(16, LicenceKind_Evaluation);
        RegisterGeneratedCode(16, LicenceKind_Licensed);
        const std::string comment = "<!--Created with an evaluation version of QvXmlLib16-->\n";
        std::fputs(WriteElement(true).c_str(), stderr);
        if (WriteElement(false) != comment + "<r/>\n") std::exit(1);
        TryEntryPoints("");
      },
      std::string(kBanner) +
          "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
          "<!--Created with an evaluation version of QvXmlLib16-->\n<r/>\ndone\n");
}

TEST_F(LicenceDeathTest, EveryEntryPointRefusesCodeOfAnotherVersion) {
  for (const int version : {15, 17, 0, -1}) {
    EXPECT_STDERR(
        {
          RegisterGeneratedCode(version, LicenceKind_Licensed);
          RegisterGeneratedCode(16, LicenceKind_Licensed);
          TryEntryPoints("The generated code requires version " + std::to_string(version) +
                         " of the library, this is version 16");
        },
        "done\n");
  }
}

}  // namespace
