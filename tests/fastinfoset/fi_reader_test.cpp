// Octets into the tree: the examples and the forms of X.891, what the tree keeps of them, and what
// is refused.

#include "qvxml/fastinfoset/fi_reader.h"

#include <functional>
#include <string>

#include "tests/support/qv_gtest.h"
#include "tests/support/test_locale.h"
#include "tests/support/xml_dump.h"
#include <pthread.h>

#include "qvxml/binding/serialization_context.h"
#include "qvxml/fastinfoset/fi_context.h"
#include "qvxml/types/binary_data.h"
#include "qvxml/xml/compression.h"
#include "qvxml/xml/xml_document.h"

using namespace QvXmlLib16;
using qv_test::Dump;

namespace {

// Octets from digits in pairs, and from 'characters'; blanks do not count.
std::string Octets(const std::string& notation) {
  std::string octets;
  for (size_t i = 0; i < notation.size(); ++i) {
    if (notation[i] == ' ') continue;
    if (notation[i] == '\'') {
      while (notation[++i] != '\'') octets += notation[i];
      continue;
    }
    octets += static_cast<char>(std::stoi(notation.substr(i++, 2), nullptr, 16));
  }
  return octets;
}

// A document without further components.
std::string Document(const std::string& notation) { return Octets("E0000001 00" + notation); }

std::string Repeat(const std::string& text, size_t count) {
  std::string result;
  result.reserve(text.size() * count);
  for (size_t i = 0; i < count; ++i) result += text;
  return result;
}

void LoadInto(CXmlDocument& document, const std::string& octets) {
  document.LoadXmlStream(reinterpret_cast<const unsigned char*>(octets.data()), octets.size());
}

std::string Load(const std::string& octets,
                 const CSerializationContext& context = CSerializationContext::m_defaultContext) {
  CXmlDocument document(context);
  LoadInto(document, octets);
  return Dump(document.GetDocumentElement());
}

// What reading makes of the octets: the tree, or the message.
std::string Outcome(const std::string& octets, const CSerializationContext& context =
                                                   CSerializationContext::m_defaultContext) {
  try {
    return Load(octets, context);
  } catch (const CQvException& exception) {
    return exception.GetMessage();
  }
}

class CFastInfosetReaderTest : public testing::Test {
 protected:
  ~CFastInfosetReaderTest() override {
    for (const char* name :
         {"CXmlDocument", "CXmlElement", "CXmlAttribute", "CFastInfosetReader"}) {
      EXPECT_EQ(CInstanceMonitor::GetCount(name), 0) << name;
    }
  }
};

struct Row {
  const char* name;
  const char* notation;
  const char* outcome;
};

template <size_t n>
void ExpectOutcomes(const Row (&rows)[n], const std::string& before) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Outcome(Octets(before + row.notation)), row.outcome);
  }
}

}  // namespace

TEST_F(CFastInfosetReaderTest, ReadsTheHeader) {
  const Row rows[] = {
      {"nothing", "00 3C00'r'FF", "r"},
      {"additional data", "40 01 02'urn' 01 00FF 00'x' 00'y' 3C00'r'FF", "r"},
      {"notations", "10 C3 00'n' 03's.gi' 01'pu' C0 00'm' C1 80 80 F0 3C00'r'FF", "r"},
      {"unparsed entities", "08 D0 00'e' 00's' 00'n' D1 81 80 00'p' 80 F0 3C00'r'FF", "r"},
      {"encoding, standalone, version", "07 05'UTF-16' 00 02'1.0' 3C00'r'FF", "r"},
      {"a version in the table", "01 42'1.0' E280 3C00'r'FF", "r"},
      {"type, instructions, comments",
       "00 E100'p'FF C7 00's' 80 E18041'ab' E180FF F0 E280 3C00'r'"
       "F0 E204'later' E180 80 F0",
       "r"},
      {"a version that is not known", "01 02'9.9' 3C00'r'FF", "r"},
      {"padding", "80 3C00'r'FF",
       "Unexpected octet [80] for the components of a Fast Infoset document at byte 4"},
      {"standalone", "02 02 3C00'r'FF", "Unexpected octet [02] for standalone at byte 5"},
      {"long padding of a list", "10 C0 00'n' FF 3C00'r'FF",
       "Unexpected octet [FF] for a notation at byte 8"},
      {"no notation", "10 F0 3C00'r'FF", "Unexpected octet [F0] for a notation at byte 5"},
      {"two types", "00 C4F0 C4F0 3C00'r'FF",
       "Unexpected octet [C4] for the start of the document element at byte 7"},
      {"text before the element", "00 80'x' 3C00'r'FF",
       "Unexpected octet [80] for the start of the document element at byte 5"},
      {"no element", "00 F0",
       "Unexpected octet [F0] for the start of the document element at byte 5"},
      {"two elements", "00 3C00'r'F0 00 FF",
       "Unexpected octet [00] for the end of the document at byte 9"},
      {"type after the element", "00 3C00'r'F0 C4F0 F0",
       "Unexpected octet [C4] for the end of the document at byte 9"},
      {"octets after the end", "00 3C00'r'FF 00",
       "There are octets after the Fast Infoset document at byte 9"},
      {"long padding of the end", "00 3C00'r'F0FF",
       "Unexpected octet [FF] for the end of the document at byte 9"},
      {"instruction xml", "00 E102'XmL'FF 3C00'r'FF",
       "A processing instruction is named xml at byte 6"},
  };
  ExpectOutcomes(rows, "E0000001");
}

TEST_F(CFastInfosetReaderTest, RecognisesItsInputByTheFirstOctets) {
  const std::string document = Document("3C00'r'FF");
  for (const std::string version : {"", "version='1.0' ", "version='1.1' "}) {
    for (const std::string standalone : {"", " standalone='yes'", " standalone='no'"}) {
      const std::string declaration = "<?xml " + version + "encoding='finf'" + standalone + "?>";
      EXPECT_EQ(Outcome(declaration + document), "r");
      // Left to the XML reader.
      const std::string outcome = Outcome(declaration + "\n" + document);
      EXPECT_TRUE(outcome.ends_with(" at line 1")) << outcome;
    }
  }
  EXPECT_EQ(Outcome("\xE0"), "partial character at line 1");
  EXPECT_EQ(Outcome(Octets("E000 00")), "The Fast Infoset document ends too early at byte 3");
  EXPECT_EQ(Outcome(Octets("E000 0002 00")),
            "Unexpected octet [02] for the version of a Fast Infoset document at byte 3");
  EXPECT_FALSE(CFastInfosetReader::IsFastInfoset(nullptr, 0));
  CXmlDocument empty;
  EXPECT_QV_THROW(CFastInfosetReader(empty, CFastInfosetContext()).Parse(), CQvException,
                  "There is no Fast Infoset document at byte 0");
}

TEST_F(CFastInfosetReaderTest, ReadsTheExamplesOfTheStandard) {
  const Row rows[] = {
      {"names, values, tables, terminators",
       "E0000001 00 7C00'o' 7801'no'40'1' 7800'q'FF F0 3C03'line' 9202'bolts' F0 01 A0 F0 41 00 80 F0 "
       "90'n' FF F0",
       "o(no='1')(q='') [line 'bolts', line 'bolts', line(no='1') 'n']"},
      {"namespaces",
       "E0000001 00 78 CF00'a'04'urn:a' CD04'urn:d' F0 3F818100'r' 7B818100'k'40'v' "
       "7B808003'lang'41'en' F0 3D8200's' 38 CC F0 3C00't' FF 3F818183 FF F0",
       "{urn:a}r({urn:a}k='v')({http://www.w3.org/XML/1998/namespace}lang='en') [{urn:d}s [t], "
       "{urn:a}s]"},
      {"algorithms and alphabets",
       "E0000001 00 3C00'n' 3C00'i' 8C0E05 FFFFFFFF 00000007 F0 3C00'b' 8C140B F0 3C00'h' 8C01CAFE F0 "
       "3C00'f' 8C1A013FC00000 F0 3C00'd' 98020012C50F F0 05 A0 F0 7C00'k' 7881 3021012C 7800't' "
       "60142024A02A29 7800'u' 80 FF FF",
       "n [i '-1 7', b 'true false true true', h 'CAFE', f '1.5', d '12.50', d '12.50', "
       "k(i='300')(t='2024-02-29')(u='2024-02-29')]"},
      {"UTF-16, cdata, comment, instruction, type",
       "E0000001 03 01 02'1.0' C604'r.dtd'F0 E100'p'41'ab' 3C00'r' 960300E9D83DDE00 E280 3C00'x' A0 F0 "
       "8C26 00'a<b' E180FF FF",
       "r '\xC3\xA9\xF0\x9F\x98\x80"
       "a<b' [x '\xC3\xA9\xF0\x9F\x98\x80']"},
      {"initial vocabulary",
       "E0000001 20039B 0000'p' 0004'urn:p' 0200'r'00's'00'a' 0001'on' 0004'hello' 01 03010100 0001 00 0002 "
       "78 CF8181 F0 00 00 80 F0 01 A0 FF F0",
       "{urn:p}r(a='on') [s 'hello']"},
  };
  ExpectOutcomes(rows, "");
}

TEST_F(CFastInfosetReaderTest, ResolvesNames) {
  const Row rows[] = {
      {"literal parts in a name", "78 CF00'p'00'u' F0 3F00'p'00'u'00'r' F0F0F0", "{u}r"},
      {"two prefixes for one namespace", "38 CF00'p'00'u' CF00'q'81 F0 3F818100'r' 3F828180 F0 FF",
       "{u}r [{u}r]"},
      {"a prefix bound anew, and back",
       "38 CF00'p'00'u' F0 3F818100'r' 38 CF8100'v' F0 3F818280 F0 00 F0 FF", "{u}r [{v}r, {u}r]"},
      {"the xml prefix declared", "38 CF8080 F0 3C00'r' FF", "r"},
      {"a prefix undeclared", "38 CE00'p' F0 3C00'r' FF", "r"},
      {"empty lists", "78 F0 3C00'r' F0 FF", "r"},
      {"a default namespace does not reach attributes", "78 CD00'u' F0 3D8100'r' 7800'a'FF FF F0",
       "{u}r(a='')"},
      {"an attribute of that name in two namespaces",
       "78 CF00'p'00'u' F0 3C00'r' 7800'a'FF 7B818181FF FF F0", "r(a='')({u}a='')"},
      {"non-ASCII", "3C 04 C3A9 CC80'_' FF", "\xC3\xA9\xCC\x80_"},
      {"prefix without namespace", "3E00'p'00'r'FF", "Unexpected octet [3E] for a name at byte 5"},
      {"illegal name", "3900'r'FF", "Unexpected octet [39] for an index at byte 5"},
      {"illegal attribute", "7C00'r' 7000'a'FF FF F0",
       "Unexpected octet [70] for an index at byte 8"},
      {"end of attributes", "7C00'r' F1", "Unexpected octet [F1] for an attribute at byte 8"},
      {"illegal namespace attribute", "38 C000'p' F0 3C00'r' FF",
       "Unexpected octet [C0] for a namespace attribute at byte 6"},
      {"long padding of namespace attributes", "38 CC FF 3C00'r' FF",
       "Unexpected octet [FF] for a namespace attribute at byte 7"},
      {"bits before the name", "38 CC F0 7C00'r' FF",
       "Unexpected octet [7C] for the name of an element at byte 8"},
      {"namespace attributes twice", "38 CC F0 38 CC F0 3C00'r' FF",
       "Unexpected octet [38] for the name of an element at byte 8"},
      {"its own name", "3C00'r' 01",
       "The index [2] exceeds the [1] entries of its table at byte 8"},
      {"index of an attribute", "7C00'r' 00",
       "The index [1] exceeds the [0] entries of its table at byte 8"},
      {"index of a prefix", "38 CF8100'u'",
       "The index [2] exceeds the [1] entries of its table at byte 7"},
      {"index of a namespace", "38 CD81",
       "The index [2] exceeds the [1] entries of its table at byte 7"},
      {"index of a local name", "3C80",
       "The index [1] exceeds the [0] entries of its table at byte 6"},
      {"illegal index of a local name", "3CFF", "Unexpected octet [FF] for an index at byte 6"},
      {"colon", "3C02'p:r'FF", "The text is no name without a colon at byte 7"},
      {"digit first", "3C00'1'FF", "The text is no name without a colon at byte 7"},
      {"prefix not declared", "3F00'p'00'u'00'r'FF",
       "The prefix [p] is not bound to the namespace [u] at byte 5"},
      {"declared elsewhere", "3C00'r' 38 CF00'p'00'u' F0 3C80 F0 3F818180 FF F0",
       "The prefix [p] is not bound to the namespace [u] at byte 18"},
      {"declared for another namespace", "38 CF00'p'00'u' F0 3F8100'v'00'r' FF",
       "The prefix [p] is not bound to the namespace [v] at byte 12"},
      {"default namespace not declared", "3D00'u'00'r'FF",
       "The prefix [] is not bound to the namespace [u] at byte 5"},
      {"default namespace in the way", "38 CD00'u' F0 3C00'r'FF",
       "The prefix [] is not bound to the namespace [] at byte 10"},
      {"attribute in a namespace without prefix", "78 CD00'u' F0 3D8100'r' 798100'a'FF FFF0",
       "The prefix [] is not bound to the namespace [u] at byte 14"},
      {"a declaration for an attribute", "7C00'r' 7804'xmlns'00'u' FFF0",
       "The attribute [xmlns] is no namespace attribute at byte 8"},
      {"attribute twice", "7C00'r' 7800'a'FF 7880FF 7881FF FFF0",
       "The attribute [a] occurs twice at byte 15"},
      {"attribute twice with two prefixes",
       "78 CF00'p'00'u' CF00'q'81 F0 3C00'r' 7B818100'a'FF 7B828181FF FFF0",
       "The attribute [a] occurs twice at byte 25"},
      {"prefix twice", "38 CF00'p'00'u' CF8100'v' F0 3C00'r'FF",
       "The prefix [p] is declared twice at byte 11"},
      {"default namespace twice", "38 CC CD00'u' F0 3C00'r'FF",
       "The prefix [] is declared twice at byte 7"},
      {"xml bound otherwise", "38 CF8000'u' F0 3C00'r'FF",
       "A prefix or namespace that XML reserves is declared at byte 6"},
      {"another prefix for xml", "38 CF00'p'80 F0 3C00'r'FF",
       "A prefix or namespace that XML reserves is declared at byte 6"},
      {"xmlns declared", "38 CF04'xmlns'00'u' F0 3C00'r'FF",
       "A prefix or namespace that XML reserves is declared at byte 6"},
      {"namespace of xmlns", "38 CF00'p'1C'http://www.w3.org/2000/xmlns/' F0 3C00'r'FF",
       "A prefix or namespace that XML reserves is declared at byte 6"},
  };
  ExpectOutcomes(rows, "E0000001 00");
}

TEST_F(CFastInfosetReaderTest, DecodesText) {
  const Row rows[] = {
      {"chunks are joined", "80'a' 90'b' A0 3C00's'F0 80'c'", "r 'abbc' [s]"},
      {"whitespace between children", "81 0A20 3C00's'F0 81 0A20 01 F0 80 0A",
       "r '\n \n \n' [s, s]"},
      {"carriage returns are dropped", "92 02 0D'a'0D0A'b' A0 90 0D A1", "r 'a\nba\nb'"},
      {"an attribute keeps them", "7C80 7800'a' 00 0D FF", "r [r(a='\r')]"},
      {"eight octets and more", "82 04'1234567' 82 05'12345678' 82 06'123456789'",
       "r '123456712345678123456789'"},
      {"a control character at the end", "82 06'12345678'01",
       "The text is malformed or holds a character that XML forbids at byte 10"},
      {"NUL", "80 00", "The text is malformed or holds a character that XML forbids at byte 9"},
      {"overlong", "81 C080",
       "The text is malformed or holds a character that XML forbids at byte 9"},
      {"surrogate", "82 00 EDA080",
       "The text is malformed or holds a character that XML forbids at byte 10"},
      {"U+FFFF", "82 00 EFBFBF",
       "The text is malformed or holds a character that XML forbids at byte 10"},
      {"cut sequence", "81 E282",
       "The text is malformed or holds a character that XML forbids at byte 9"},
      {"DEL and C1", "82 00 7FC280", "r '\x7F\xC2\x80'"},
      {"UTF-16 of an odd size", "84 00",
       "The text is malformed or holds a character that XML forbids at byte 9"},
      {"UTF-16 NUL", "85 0000",
       "The text is malformed or holds a character that XML forbids at byte 9"},
      {"high surrogate at the end", "85 D83D",
       "The text is malformed or holds a character that XML forbids at byte 9"},
      {"high surrogate alone", "86 01 D83D0041",
       "The text is malformed or holds a character that XML forbids at byte 10"},
      {"low surrogate first", "85 DE00",
       "The text is malformed or holds a character that XML forbids at byte 9"},
      {"numeric alphabet", "8802 02 A12C5FFFFF",
       "The octets are no text of the restricted alphabet [1] at byte 11"},
      {"numeric alphabet filled", "8801 A12C 8800 7F 8800 DE", "r '-12.7e '"},
      {"date alphabet", "8806 00 12B00D 8806 03 2024A02A29CE", "r '12:00Z2024-02-29T '"},
      {"a whole octet of filling", "8801 12FF",
       "The octets are no text of the restricted alphabet [1] at byte 10"},
      {"filling in the middle", "8801 1F12",
       "The octets are no text of the restricted alphabet [1] at byte 10"},
      {"no character", "8800 FF",
       "The octets are no text of the restricted alphabet [1] at byte 10"},
      {"reserved alphabet", "8808 12", "Unknown restricted alphabet [3] at byte 8"},
      {"undeclared alphabet", "883C 12", "Unknown restricted alphabet [16] at byte 8"},
      {"hexadecimal and base64", "8C01 0AFF 80' ' 8C04 66 8C06 00 666F6F", "r '0AFF Zg==Zm9v'"},
      {"short", "8C0A 03 8000 7FFF 0000", "r '-32768 32767 0'"},
      {"short of an odd size", "8C08 00",
       "The octets are no values of the encoding algorithm [3] at byte 10"},
      {"int", "8C0E 01 80000000", "r '-2147483648'"},
      {"int cut", "8C0E 00 800000",
       "The octets are no values of the encoding algorithm [4] at byte 11"},
      {"long", "8C12 05 8000000000000000", "r '-9223372036854775808'"},
      {"booleans", "8C14 38 80' ' 8C14 30 80' ' 8C15 7B00 80' ' 8C15 0FFF",
       "r 'true false true false true true false true true true true true true true true true true true true'"},
      {"no boolean", "8C14 40",
       "The octets are no values of the encoding algorithm [6] at byte 10"},
      {"more unused bits than there are", "8C14 70",
       "The octets are no values of the encoding algorithm [6] at byte 10"},
      {"eight unused bits", "8C15 8000",
       "The octets are no values of the encoding algorithm [6] at byte 10"},
      {"unused bits set", "8C14 39",
       "The octets are no values of the encoding algorithm [6] at byte 10"},
      {"float", "8C1A 0D 3DCCCCCD 7F7FFFFF 80000000 FFC00001", "r '0.1 3.4028235e+38 -0 NaN'"},
      {"double", "8C1E 15 3FD3333333333334 7FEFFFFFFFFFFFFF 4341C37937E08000",
       "r '0.30000000000000004 1.7976931348623157e+308 1e+16'"},
      {"uuid", "8C22 0D 00112233445566778899AABBCCDDEEFF",
       "r '00112233-4455-6677-8899-aabbccddeeff'"},
      {"uuid cut", "8C20 00", "The octets are no values of the encoding algorithm [9] at byte 10"},
      {"cdata end inside", "8C26 01']]>x'",
       "The text is malformed or holds a character that XML forbids at byte 11"},
      {"reserved algorithm", "8C28 00", "Unknown encoding algorithm [11] at byte 8"},
      {"undeclared algorithm", "8C7C 00", "Unknown encoding algorithm [32] at byte 8"},
      {"added by an algorithm", "9C0E 01 00000007 A0", "r '77'"},
      {"cdata in an attribute", "7C80 7800'a' 3090'x' FF",
       "An attribute value is a CDATA section at byte 13"},
      {"entity reference", "80'a' C800'e' CB80 00's' 00'p' CA80 80 80'b'", "r 'ab'"},
      {"comment and instruction without content", "E2FF E100'p'FF 80'a'", "r 'a'"},
      {"index of a chunk", "A0", "The index [1] exceeds the [0] entries of its table at byte 8"},
      {"index of a value", "7C80 7800'a'80",
       "The index [1] exceeds the [0] entries of its table at byte 13"},
      {"index of a comment", "E280",
       "The index [1] exceeds the [0] entries of its table at byte 9"},
      {"index of a target", "E180", "The index [1] exceeds the [0] entries of its table at byte 9"},
      {"index of an identifier", "CA00'e'80",
       "The index [1] exceeds the [0] entries of its table at byte 11"},
      {"type within an element", "C4F0",
       "Unexpected octet [C4] for the content of an element at byte 8"},
      {"illegal index of a chunk", "B9", "Unexpected octet [B9] for an index at byte 8"},
      {"illegal length of a value", "7C80 7800'a'09",
       "Unexpected octet [09] for a length at byte 13"},
      {"illegal value", "7C80 7800'a'F0", "Unexpected octet [F0] for an index at byte 13"},
      {"illegal terminator", "F1", "Unexpected octet [F1] for the content of an element at byte 8"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Outcome(Document(std::string("3C00'r'") + row.notation + "FF")), row.outcome);
  }
}

TEST_F(CFastInfosetReaderTest, ReadsInitialVocabularies) {
  const Row rows[] = {
      {"alphabets of two, four, five and more bits",
       "0800 02 01'ab' 0E'0123456789ABCDE' 05 C3A9'x'E282AC 3C00'r' 883C1F 884012 88441B FF",
       "r 'ab12\xC3\xA9x\xE2\x82\xAC'"},
      {"tables that nothing is read from",
       "0464 00 00'u' 0000'n' 0000'i' 0000's' 3C00'r' E18080 CA8080 FF", "r"},
      {"values by alphabet and algorithm",
       "0018 01 20011233 303300000007 00 20007F 7C00'r' 7800'a'80 7800'b'81 F0 A0 FF",
       "r(a='1233')(b='7') '7'"},
      {"names before they are declared", "0382 0000'p' 0000'u' 0000'r' 00 03010100 00 FF",
       "The prefix [p] is not bound to the namespace [u] at byte 21"},
      {"no component", "0000 3C00'r'FF",
       "Unexpected octet [00] for an initial vocabulary at byte 6"},
      {"padding", "2080 0000'r' 3C80 FF",
       "Unexpected octet [20] for an initial vocabulary at byte 5"},
      {"index for an entry", "0200 00 80", "Unexpected octet [80] for a length at byte 8"},
      {"index for a value", "0010 00 80",
       "Unexpected octet [80] for an entry of a table at byte 8"},
      {"added value", "0010 00 40'x'", "Unexpected octet [40] for an entry of a table at byte 8"},
      {"alphabet of one character", "0800 00 00'x'",
       "A restricted alphabet needs two characters or more, all different at byte 9"},
      {"alphabet with a character twice", "0800 00 02'aba'",
       "A restricted alphabet needs two characters or more, all different at byte 9"},
      {"count", "0200 90", "Unexpected octet [90] for a count at byte 7"},
      {"large count", "0200 8FFFFF", "The count [1048704] exceeds 1048576 at byte 7"},
      {"surrogate without namespace", "0082 0000'r' 0002",
       "Unexpected octet [02] for a name surrogate at byte 11"},
      {"index of a surrogate", "0082 0000'r' 000001",
       "The index [2] exceeds the [1] entries of its table at byte 12"},
      {"literal in a surrogate", "0082 0000'r' 000080",
       "Unexpected octet [80] for an index at byte 12"},
      {"external", "1000 04'urn:x' 3C00'r'FF",
       "The external vocabulary [urn:x] is not the one of the context at byte 8"},
  };
  ExpectOutcomes(rows, "E0000001 20");
}

// Every form of an index, up to full tables, to which nothing is added any more. Entry n of each
// table is the n-th letter, beginning again after the last.
TEST_F(CFastInfosetReaderTest, FollowsIndicesThroughFullTables) {
  constexpr unsigned kEntries = 1048576;
  constexpr unsigned kLetters = 26;
  const auto letterOf = [](unsigned entry) {
    return std::string(1, static_cast<char>('a' + (entry - 1) % kLetters));
  };
  std::string octets = Document("3C00'a'");
  for (unsigned entry = 2; entry <= kEntries + 1; ++entry) {
    const char localName = static_cast<char>(0x80 + (entry - 1) % kLetters);
    octets += '\x3C';
    octets +=
        entry <= kLetters ? std::string(1, '\0') + letterOf(entry) : std::string(1, localName);
    octets += '\xF0';
  }
  for (unsigned entry = 1; entry <= kEntries + 1; ++entry) {
    const char localName = static_cast<char>(0x80 + (entry - 1) % kLetters);
    octets += "\x40\x78" + std::string(1, localName) + "\x40" + letterOf(entry) + "\xFF";
  }
  octets += '\0';
  for (unsigned entry = 1; entry <= kEntries + 1; ++entry) octets += "\x90" + letterOf(entry);
  octets += '\xF0';
  struct Index {
    unsigned index;
    const char *onSecondBit, *onThirdBit, *onFourthBit;
  };
  const Index indices[] = {
      {1, "00", "00", "A0"},
      {16, "0F", "0F", "AF"},
      {17, "10", "10", "B000"},
      {32, "1F", "1F", "B00F"},
      {33, "20", "2000", "B010"},
      {64, "3F", "201F", "B02F"},
      {65, "4000", "2020", "B030"},
      {1040, "43CF", "23EF", "B3FF"},
      {1041, "43D0", "23F0", "B40000"},
      {2080, "47DF", "27FF", "B4040F"},
      {2081, "47E0", "280000", "B40410"},
      {8256, "5FFF", "28181F", "B41C2F"},
      {8257, "600000", "281820", "B41C30"},
      {263184, "63E3CF", "2BFBEF", "B7FFFF"},
      {263185, "63E3D0", "2BFBF0", "B8000000"},
      {526368, "67E7DF", "2FFFFF", "B804040F"},
      {526369, "67E7E0", "30000000", "B8040410"},
      {1048576, "6FDFBF", "3007F7DF", "B80BFBEF"},
  };
  static std::string seen;
  seen.clear();
  std::string expected;
  for (const Index& index : indices) {
    std::string element = Octets(index.onThirdBit), value = Octets(index.onSecondBit);
    element[0] = static_cast<char>(element[0] | 0x40);
    value[0] = static_cast<char>(value[0] | 0x80);
    octets +=
        element + Octets(index.onSecondBit) + value + "\xF0" + Octets(index.onFourthBit) + "\xF0";
    const std::string letter = letterOf(index.index);
    expected += letter + "(" + letter + "='" + letter + "') '" + letter + "' ";
  }
  CXmlDocument document([](CXmlElement* element) {
    if (!element->GetText().empty() && !element->GetAttributes().empty()) {
      seen += Dump(element) + " ";
    }
    return true;
  });
  LoadInto(document, octets + "\xFF");
  EXPECT_EQ(seen, expected);

  const Row beyond[] = {
      {"element", "300FFFFF", "The index [1574944] exceeds 1048576"},
      {"attribute", "406FFFFF", "The index [1056832] exceeds 1048576"},
      {"chunk", "B80FFFFF", "The index [1311760] exceeds 1048576"},
      {"bits of an element", "30100000", "Unexpected octet [10] for an index"},
      {"bits of a chunk", "B8100000", "Unexpected octet [10] for an index"},
  };
  for (const Row& row : beyond) {
    SCOPED_TRACE(row.name);
    const std::string outcome = Outcome(Document(std::string("3C00'a'") + row.notation + "F0F0F0"));
    EXPECT_EQ(outcome.substr(0, outcome.find(" at byte")), row.outcome);
  }
}

TEST_F(CFastInfosetReaderTest, RefusesLengthsBeyondTheInput) {
  const Row rows[] = {
      {"name", "3C 3F'r'", "The length [64] exceeds the rest of the document at byte 6"},
      {"long name", "3C 40FF'r'", "The length [320] exceeds the rest of the document at byte 6"},
      {"longest name", "3C 60FFFFFFFF'r'",
       "The length [4294967616] exceeds the rest of the document at byte 6"},
      {"length that 32 bits would wrap", "3C 60FFFFFEC0'r'",
       "The length [4294967297] exceeds the rest of the document at byte 6"},
      {"value", "7C00'r' 7800'a'07'x'",
       "The length [8] exceeds the rest of the document at byte 11"},
      {"long value", "7C00'r' 7800'a'0800'x'",
       "The length [9] exceeds the rest of the document at byte 11"},
      {"longest value", "7C00'r' 7800'a'0CFFFFFEF8'x'",
       "The length [4294967297] exceeds the rest of the document at byte 11"},
      {"chunk", "3C00'r' 81'x'", "The length [2] exceeds the rest of the document at byte 8"},
      {"long chunk", "3C00'r' 8200'x'",
       "The length [3] exceeds the rest of the document at byte 8"},
      {"longest chunk", "3C00'r' 83FFFFFEFE'x'",
       "The length [4294967297] exceeds the rest of the document at byte 8"},
      {"payload", "3C00'r' 8C0F7FFFFFFF",
       "The length [2147483906] exceeds the rest of the document at byte 9"},
      {"illegal length of a name", "3C 41'r'", "Unexpected octet [41] for a length at byte 6"},
      {"end within a length", "3C00'r' 830000",
       "The Fast Infoset document ends too early at byte 11"},
  };
  ExpectOutcomes(rows, "E0000001 00");
}

TEST_F(CFastInfosetReaderTest, NestingCostsNoStack) {
  static constexpr size_t kDepth = 1000000;
  const std::string octets = Document("3C00'a'") + Repeat(std::string(1, '\0'), kDepth - 1) +
                             "\x80x" + Repeat("\xFF", kDepth / 2) + "\xF0";
  std::function<void()> action = [&octets] {
    CXmlDocument document;
    LoadInto(document, octets);
    size_t depth = 0;
    for (const CXmlElement* element = document.GetDocumentElement(); element != nullptr;
         element = element->GetFirstElement()) {
      ++depth;
    }
    EXPECT_EQ(depth, kDepth);
    // Cut off in the depths.
    EXPECT_EQ(Outcome(octets.substr(0, kDepth)),
              "The Fast Infoset document ends too early at byte 1000000");
  };
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, 256 * 1024), 0);
  pthread_t thread;
  const auto run = [](void* argument) -> void* {
    (*static_cast<std::function<void()>*>(argument))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &action), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

TEST_F(CFastInfosetReaderTest, BoundsRepetition) {
  const auto octets = [](const std::string& before, const std::string& repeated, size_t count) {
    return Document("3C00'r'") + before + Repeat(repeated, count) + "\xFF";
  };
  // 8 KiB each time that an octet or two name it.
  const std::string text = Octets("00001EFD") + Repeat("x", 8192);
  const std::string chunk = "\x93" + text;
  const std::string value = Octets("7C00'a'7800'b'4C00001EF7") + Repeat("x", 8192) + "\xFF";
  const std::string declared =
      Octets("38CD6000001EBF") + Repeat("u", 8192) + Octets("F03D8100'n'F0");
  struct {
    const char* name;
    std::string before, repeated;
  } rows[] = {
      {"text", chunk, "\xA0"},
      {"attribute values", value, Octets("41 00 80 FF")},
      {"names in a long namespace", declared, Octets("38 CD81 F0 3D81 00'z' F0")},
      {"declarations in turn", declared, Octets("38 CD81 F0 01 38 CC F0 00 FF")},
  };
  CSerializationContext context;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    context.GetFIContext().SetMaxAmplification(100);
    EXPECT_EQ(Outcome(octets(row.before, row.repeated, 500), context).substr(0, 2), "r ");
    const std::string outcome = Outcome(octets(row.before, row.repeated, 4000), context);
    EXPECT_EQ(outcome.substr(0, outcome.find(" at byte")),
              "The limit on the amplification of the Fast Infoset document is exceeded");
    context.GetFIContext().SetMaxAmplification(0);
    EXPECT_EQ(Outcome(octets(row.before, row.repeated, 4000), context).substr(0, 2), "r ");
  }
}

TEST_F(CFastInfosetReaderTest, FollowsTheContext) {
  const std::string sections = Document("3C00'r' 80'a' 9C26 02'<b>&c' 80'd' A0 FF");
  const std::string names =
      Document("78 CF00'p'00'u' CD00'v' F0 3F818100'r' 7B818100'a'40'1' F0 3D8200's' FF F0");
  CSerializationContext context;
  EXPECT_EQ(Load(sections, context), "r 'a<b>&cd<b>&c'");
  context.SetStripCDATA(false);
  EXPECT_EQ(Load(sections, context), "r 'a<![CDATA[<b>&c]]>d<b>&c'");
  EXPECT_EQ(Load(names, context), "{u}r({u}a='1') [{v}s]");
  context.SetSchemaType(SchemaType_LocalNames);
  EXPECT_EQ(Load(names, context), "p:r(xmlns:p='u')(xmlns='v')(p:a='1') [s]");
  EXPECT_EQ(Outcome(Document("38 CC CC F0 3C00'r' FF"), context),
            "The attribute [xmlns] occurs twice at byte 7");
}

TEST_F(CFastInfosetReaderTest, ReadsExternalVocabulariesOfTheContext) {
  CSerializationContext context;
  CFastInfosetContext& options = context.GetFIContext();
  options.SetExternalVocabularyURI("urn:x");
  options.GetVocabulary().AddElement("p", "u", "r");
  options.GetVocabulary().AddAttribute("", "", "a");
  options.GetVocabulary().AddAttributeValue("value");
  options.GetVocabulary().AddElementValue("te\rxt");
  // The local name that follows is the third.
  const std::string octets =
      Octets("E0000001 20 1000 04'urn:x' 78 CF8181 F0 00 00 80 F0 A0 3C00's' F0 3C82 FF F0");
  EXPECT_EQ(Outcome(octets, context),
            "The external vocabulary [urn:x] is not the one of the context at byte 8");
  options.SetUseGeneratedVocabulary(true);
  EXPECT_EQ(Outcome(octets, context), "{u}r(a='value') 'text' [s, s]");
  EXPECT_EQ(Outcome(octets, context), "{u}r(a='value') 'text' [s, s]");
  // One that names none starts from nothing.
  EXPECT_EQ(Outcome(Document("3C00'q'FF"), context), "q");
  options.SetExternalVocabularyURI("urn:y");
  EXPECT_EQ(Outcome(octets, context),
            "The external vocabulary [urn:x] is not the one of the context at byte 8");
}

TEST_F(CFastInfosetReaderTest, OffersElementsAndKeepsWhatWasRead) {
  static std::string seen;
  seen.clear();
  CXmlDocument document([](CXmlElement* element) {
    seen +=
        Dump(element) + " in '" + element->GetDocument()->GetDocumentElement()->GetText() + "'; ";
    return element->GetLocalName() == "x";
  });
  LoadInto(document, Document("3C00'r' 80'a' 3C00'x' 80 20 7C00'y' 7800'k'00'v' FF F0 80'b' FF"));
  EXPECT_EQ(seen, "y(k='v') in 'a'; x ' ' [y(k='v')] in 'a'; r 'ab' in 'ab'; ");
  EXPECT_EQ(Dump(document.GetDocumentElement()), "r 'ab'");
  EXPECT_QV_THROW(
      LoadInto(document, Document("38CF00'p'00'u'F0 3F818100'r' 3C00'z' 81 2041 80'b' F1")),
      CQvException, "Unexpected octet [F1] for the content of an element at byte 25");
  EXPECT_EQ(Dump(document.GetDocumentElement()), "{u}r [z ' Ab']");
  EXPECT_EQ(document.LookupNamespaceFromAlias("p"), "u");
  EXPECT_EQ(document.GetDocumentElement()->GetFirstElement()->GetXPath(), "/p:r/z");
}

TEST_F(CFastInfosetReaderTest, ReadsCompressedInput) {
  const std::string octets = Document("3C00'r' 83000000FD") + Repeat("x", 512) + "\xFF";
  for (const CompressionType type : {CompressionType_GZip, CompressionType_ZLib}) {
    CBinaryData data(reinterpret_cast<const unsigned char*>(octets.data()), octets.size());
    CQvZip::CompressData(data, type);
    CXmlDocument document;
    document.LoadXmlStream(data.GetData(), data.GetLength());
    EXPECT_EQ(document.GetDocumentElement()->GetText(), Repeat("x", 512));
  }
}

// As the XML reader does, where text is not UTF-8.
TEST_F(CFastInfosetReaderTest, ConvertsTextToTheLocale) {
  const qv_test::CTestLocale locale("de_DE", "ISO-8859-1");
  if (!locale.IsAvailable()) GTEST_SKIP() << "no locale sources";
  const std::string octets = Document(
      "7C01 C3A9 7801 C3A8 41 C3BC 7800'b' 80 F0 91 C384 A0 38 CF00'p'01 C3A7 F0 3F818180 FF F0");
  CXmlDocument document;
  LoadInto(document, octets);
  EXPECT_EQ(Dump(document.GetDocumentElement()),
            "\xE9(\xE8='\xFC')(b='\xFC') '\xC4\xC4' [{\xE7}\xE9]");
  EXPECT_EQ(document.LookupAliasFromNamespace("\xE7"), "p");
}
