// Octets into the tree: the examples and the forms of X.891, what the tree keeps of them, and what
// is refused.

#include "qvxml/fastinfoset/fi_reader.h"

#include <string>

#include "tests/support/qv_gtest.h"
#include "tests/support/small_stack.h"
#include "tests/support/test_locale.h"
#include "tests/support/xml_dump.h"

#include "qvxml/binding/serialization_context.h"
#include "qvxml/fastinfoset/fi_context.h"
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
  const char* notation;
  std::string outcome;
};

std::string At(const std::string& message, int byte) {
  return message + " at byte " + std::to_string(byte);
}
std::string Unexpected(const std::string& octet, const std::string& what, int byte) {
  return At("Unexpected octet [" + octet + "] for " + what, byte);
}
std::string Beyond(int index, int entries, int byte) {
  return At("The index [" + std::to_string(index) + "] exceeds the [" + std::to_string(entries) +
                "] entries of its table",
            byte);
}
std::string NoValues(int algorithm, int byte) {
  return At(
      "The octets are no values of the encoding algorithm [" + std::to_string(algorithm) + "]",
      byte);
}
std::string TooLong(const std::string& length, int byte) {
  return At("The length [" + length + "] exceeds the rest of the document", byte);
}

const char* const kMalformed = "The text is malformed or holds a character that XML forbids";
const char* const kNoDigits = "The octets are no text of the restricted alphabet [1]";
const char* const kReserved = "A prefix or namespace that XML reserves is declared";
const char* const kNoAlphabet = "A restricted alphabet needs two characters or more, all different";
const char* const kNoName = "The text is no name without a colon";

template <size_t n>
void ExpectOutcomes(const Row (&rows)[n], const std::string& before,
                    const std::string& behind = "") {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.notation);
    EXPECT_EQ(Outcome(Octets(before + row.notation + behind)), row.outcome);
  }
}

}  // namespace

TEST_F(CFastInfosetReaderTest, ReadsTheHeader) {
  const Row rows[] = {
      // clang-format off
      {"00 3C00'r'FF", "r"}, {"40 01 02'urn' 01 00FF 00'x' 00'y' 3C00'r'FF", "r"},
      {"10 C3 00'n' 03's.gi' 01'pu' C0 00'm' C1 80 80 F0 3C00'r'FF", "r"},
      {"08 D0 00'e' 00's' 00'n' D1 81 80 00'p' 80 F0 3C00'r'FF", "r"},
      {"07 05'UTF-16' 00 02'1.0' 3C00'r'FF", "r"}, {"01 42'1.0' E280 3C00'r'FF", "r"},
      {"00 E100'p'FF C7 00's' 80 E18041'ab' E180FF F0 E280 3C00'r'F0 E204'later' E180 80 F0", "r"},
      {"01 02'9.9' 3C00'r'FF", "r"},
      {"80 3C00'r'FF", Unexpected("80", "the components of a Fast Infoset document", 4)},
      {"02 02 3C00'r'FF", Unexpected("02", "standalone", 5)},
      {"10 C0 00'n' FF 3C00'r'FF", Unexpected("FF", "a notation", 8)},
      {"10 F0 3C00'r'FF", Unexpected("F0", "a notation", 5)},
      {"00 C4F0 C4F0 3C00'r'FF", Unexpected("C4", "the start of the document element", 7)},
      {"00 80'x' 3C00'r'FF", Unexpected("80", "the start of the document element", 5)},
      {"00 F0", Unexpected("F0", "the start of the document element", 5)},
      {"00 3C00'r'F0 00 FF", Unexpected("00", "the end of the document", 9)},
      {"00 3C00'r'F0 C4F0 F0", Unexpected("C4", "the end of the document", 9)},
      {"00 3C00'r'FF 00", "There are octets after the Fast Infoset document at byte 9"},
      {"00 3C00'r'F0FF", Unexpected("FF", "the end of the document", 9)},
      {"00 E102'XmL'FF 3C00'r'FF", "A processing instruction is named xml at byte 6"},
      // clang-format on
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

TEST_F(CFastInfosetReaderTest, ResolvesNames) {
  const Row rows[] = {
      // clang-format off
      {"78 CF00'p'00'u' F0 3F00'p'00'u'00'r' F0F0F0", "{u}r"},
      {"38 CF00'p'00'u' CF00'q'81 F0 3F818100'r' 3F828180 F0 FF", "{u}r [{u}r]"},
      {"38 CF00'p'00'u' F0 3F818100'r' 38 CF8100'v' F0 3F818280 F0 00 F0 FF", "{u}r [{v}r, {u}r]"},
      {"38 CF8080 F0 3C00'r' FF", "r"}, {"38 CE00'p' F0 3C00'r' FF", "r"}, {"78 F0 3C00'r' F0 FF", "r"},
      {"78 CD00'u' F0 3D8100'r' 7800'a'FF FF F0", "{u}r(a='')"},
      {"78 CF00'p'00'u' F0 3C00'r' 7800'a'FF 7B818181FF FF F0", "r(a='')({u}a='')"},
      {"3C 04 C3A9 CC80'_' FF", "\xC3\xA9\xCC\x80_"}, {"3E00'p'00'r'FF", Unexpected("3E", "a name", 5)},
      {"3900'r'FF", Unexpected("39", "an index", 5)},
      {"7C00'r' 7000'a'FF FF F0", Unexpected("70", "an index", 8)},
      {"7C00'r' F1", Unexpected("F1", "an attribute", 8)},
      {"38 C000'p' F0 3C00'r' FF", Unexpected("C0", "a namespace attribute", 6)},
      {"38 CC FF 3C00'r' FF", Unexpected("FF", "a namespace attribute", 7)},
      {"38 CC F0 7C00'r' FF", Unexpected("7C", "the name of an element", 8)},
      {"38 CC F0 38 CC F0 3C00'r' FF", Unexpected("38", "the name of an element", 8)},
      {"3C00'r' 01", Beyond(2, 1, 8)}, {"7C00'r' 00", Beyond(1, 0, 8)}, {"38 CF8100'u'", Beyond(2, 1, 7)},
      {"38 CD81", Beyond(2, 1, 7)}, {"3C80", Beyond(1, 0, 6)}, {"3CFF", Unexpected("FF", "an index", 6)},
      {"3C02'p:r'FF", At(kNoName, 7)}, {"3C00'1'FF", At(kNoName, 7)},
      {"3F00'p'00'u'00'r'FF", "The prefix [p] is not bound to the namespace [u] at byte 5"},
      {"3C00'r' 38 CF00'p'00'u' F0 3C80 F0 3F818180 FF F0", "The prefix [p] is not bound to the namespace [u] at byte 18"},
      {"38 CF00'p'00'u' F0 3F8100'v'00'r' FF", "The prefix [p] is not bound to the namespace [v] at byte 12"},
      {"3D00'u'00'r'FF", "The prefix [] is not bound to the namespace [u] at byte 5"},
      {"38 CD00'u' F0 3C00'r'FF", "The prefix [] is not bound to the namespace [] at byte 10"},
      {"78 CD00'u' F0 3D8100'r' 798100'a'FF FFF0", "The prefix [] is not bound to the namespace [u] at byte 14"},
      {"7C00'r' 7804'xmlns'00'u' FFF0", "The attribute [xmlns] is no namespace attribute at byte 8"},
      {"7C00'r' 7800'a'FF 7880FF 7881FF FFF0", "The attribute [a] occurs twice at byte 15"},
      {"78 CF00'p'00'u' CF00'q'81 F0 3C00'r' 7B818100'a'FF 7B828181FF FFF0", "The attribute [a] occurs twice at byte 25"},
      {"38 CF00'p'00'u' CF8100'v' F0 3C00'r'FF", "The prefix [p] is declared twice at byte 11"},
      {"38 CC CD00'u' F0 3C00'r'FF", "The prefix [] is declared twice at byte 7"},
      {"38 CF8000'u' F0 3C00'r'FF", At(kReserved, 6)}, {"38 CF00'p'80 F0 3C00'r'FF", At(kReserved, 6)},
      {"38 CF04'xmlns'00'u' F0 3C00'r'FF", At(kReserved, 6)},
      {"38 CF00'p'1C'http://www.w3.org/2000/xmlns/' F0 3C00'r'FF", At(kReserved, 6)},
      // clang-format on
  };
  ExpectOutcomes(rows, "E0000001 00");
}

TEST_F(CFastInfosetReaderTest, DecodesText) {
  const Row rows[] = {
      // clang-format off
      {"80'a' 90'b' A0 3C00's'F0 80'c'", "r 'abbc' [s]"},
      {"81 0A20 3C00's'F0 81 0A20 01 F0 80 0A", "r '\n \n \n' [s, s]"},
      {"92 02 0D'a'0D0A'b' A0 90 0D A1", "r 'a\nba\nb'"}, {"7C80 7800'a' 00 0D FF", "r [r(a='\r')]"},
      {"82 04'1234567' 82 05'12345678' 82 06'123456789'", "r '123456712345678123456789'"},
      {"82 06'12345678'01", At(kMalformed, 10)}, {"80 00", At(kMalformed, 9)}, {"81 C080", At(kMalformed, 9)},
      {"82 00 EDA080", At(kMalformed, 10)}, {"82 00 EFBFBF", At(kMalformed, 10)},
      {"81 E282", At(kMalformed, 9)}, {"82 00 7FC280", "r '\x7F\xC2\x80'"}, {"84 00", At(kMalformed, 9)},
      {"85 0000", At(kMalformed, 9)}, {"85 D83D", At(kMalformed, 9)}, {"86 01 D83D0041", At(kMalformed, 10)},
      {"85 DE00", At(kMalformed, 9)}, {"8802 02 A12C5FFFFF", At(kNoDigits, 11)},
      {"8801 A12C 8800 7F 8800 DE", "r '-12.7e '"},
      {"8806 00 12B00D 8806 03 2024A02A29CE", "r '12:00Z2024-02-29T '"}, {"8801 12FF", At(kNoDigits, 10)},
      {"8801 1F12", At(kNoDigits, 10)}, {"8800 FF", At(kNoDigits, 10)},
      {"8808 12", "Unknown restricted alphabet [3] at byte 8"},
      {"883C 12", "Unknown restricted alphabet [16] at byte 8"},
      {"8C01 0AFF 80' ' 8C04 66 8C06 00 666F6F", "r '0AFF Zg==Zm9v'"},
      {"8C0A 03 8000 7FFF 0000", "r '-32768 32767 0'"}, {"8C08 00", NoValues(3, 10)},
      {"8C0E 01 80000000", "r '-2147483648'"}, {"8C0E 00 800000", NoValues(4, 11)},
      {"8C12 05 8000000000000000", "r '-9223372036854775808'"},
      {"8C14 38 80' ' 8C14 30 80' ' 8C15 7B00 80' ' 8C15 0FFF", "r 'true false true false true true false true true true true true true true true true true true true'"},
      {"8C14 40", NoValues(6, 10)}, {"8C14 70", NoValues(6, 10)}, {"8C15 8000", NoValues(6, 10)},
      {"8C14 39", NoValues(6, 10)},
      {"8C1A 0D 3DCCCCCD 7F7FFFFF 80000000 FFC00001", "r '0.1 3.4028235e+38 -0 NaN'"},
      {"8C1E 15 3FD3333333333334 7FEFFFFFFFFFFFFF 4341C37937E08000", "r '0.30000000000000004 1.7976931348623157e+308 1e+16'"},
      {"8C22 0D 00112233445566778899AABBCCDDEEFF", "r '00112233-4455-6677-8899-aabbccddeeff'"},
      {"8C20 00", NoValues(9, 10)}, {"8C26 01']]>x'", At(kMalformed, 11)},
      {"8C28 00", "Unknown encoding algorithm [11] at byte 8"},
      {"8C7C 00", "Unknown encoding algorithm [32] at byte 8"}, {"9C0E 01 00000007 A0", "r '77'"},
      {"7C80 7800'a' 3090'x' FF", "An attribute value is a CDATA section at byte 13"},
      {"80'a' C800'e' CB80 00's' 00'p' CA80 80 80'b'", "r 'ab'"}, {"E2FF E100'p'FF 80'a'", "r 'a'"},
      {"A0", Beyond(1, 0, 8)}, {"7C80 7800'a'80", Beyond(1, 0, 13)}, {"E280", Beyond(1, 0, 9)},
      {"E180", Beyond(1, 0, 9)}, {"CA00'e'80", Beyond(1, 0, 11)},
      {"C4F0", Unexpected("C4", "the content of an element", 8)}, {"B9", Unexpected("B9", "an index", 8)},
      {"7C80 7800'a'09", Unexpected("09", "a length", 13)},
      {"7C80 7800'a'F0", Unexpected("F0", "an index", 13)},
      {"F1", Unexpected("F1", "the content of an element", 8)},
      // clang-format on
  };
  ExpectOutcomes(rows, "E0000001 00 3C00'r'", "FF");
}

TEST_F(CFastInfosetReaderTest, ReadsInitialVocabularies) {
  const Row rows[] = {
      // clang-format off
      {"0800 02 01'ab' 0E'0123456789ABCDE' 05 C3A9'x'E282AC 3C00'r' 883C1F 884012 88441B FF", "r 'ab12\xC3\xA9x\xE2\x82\xAC'"},
      {"0464 00 00'u' 0000'n' 0000'i' 0000's' 3C00'r' E18080 CA8080 FF", "r"},
      {"0018 01 20011233 303300000007 00 20007F 7C00'r' 7800'a'80 7800'b'81 F0 A0 FF", "r(a='1233')(b='7') '7'"},
      {"0382 0000'p' 0000'u' 0000'r' 00 03010100 00 FF", "The prefix [p] is not bound to the namespace [u] at byte 21"},
      {"0000 3C00'r'FF", Unexpected("00", "an initial vocabulary", 6)},
      {"2080 0000'r' 3C80 FF", Unexpected("20", "an initial vocabulary", 5)},
      {"0200 00 80", Unexpected("80", "a length", 8)},
      {"0010 00 80", Unexpected("80", "an entry of a table", 8)},
      {"0010 00 40'x'", Unexpected("40", "an entry of a table", 8)}, {"0800 00 00'x'", At(kNoAlphabet, 9)},
      {"0800 00 02'aba'", At(kNoAlphabet, 9)}, {"0200 90", Unexpected("90", "a count", 7)},
      {"0200 8FFFFF", "The count [1048704] exceeds 1048576 at byte 7"},
      {"0082 0000'r' 0002", Unexpected("02", "a name surrogate", 11)},
      {"0082 0000'r' 000001", Beyond(2, 1, 12)}, {"0082 0000'r' 000080", Unexpected("80", "an index", 12)},
      // clang-format on
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
      // clang-format off
      {1, "00", "00", "A0"}, {16, "0F", "0F", "AF"}, {17, "10", "10", "B000"}, {32, "1F", "1F", "B00F"},
      {33, "20", "2000", "B010"}, {64, "3F", "201F", "B02F"}, {65, "4000", "2020", "B030"},
      {1040, "43CF", "23EF", "B3FF"}, {1041, "43D0", "23F0", "B40000"}, {2080, "47DF", "27FF", "B4040F"},
      {2081, "47E0", "280000", "B40410"}, {8256, "5FFF", "28181F", "B41C2F"},
      {8257, "600000", "281820", "B41C30"}, {263184, "63E3CF", "2BFBEF", "B7FFFF"},
      {263185, "63E3D0", "2BFBF0", "B8000000"}, {526368, "67E7DF", "2FFFFF", "B804040F"},
      {526369, "67E7E0", "30000000", "B8040410"}, {1048576, "6FDFBF", "3007F7DF", "B80BFBEF"},
      // clang-format on
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
      // clang-format off
      {"300FFFFF", "The index [1574944] exceeds 1048576"}, {"406FFFFF", "The index [1056832] exceeds 1048576"},
      {"B80FFFFF", "The index [1311760] exceeds 1048576"}, {"30100000", "Unexpected octet [10] for an index"},
      {"B8100000", "Unexpected octet [10] for an index"},
      // clang-format on
  };
  for (const Row& row : beyond) {
    SCOPED_TRACE(row.notation);
    const std::string outcome = Outcome(Document(std::string("3C00'a'") + row.notation + "F0F0F0"));
    EXPECT_EQ(outcome.substr(0, outcome.find(" at byte")), row.outcome);
  }
}

TEST_F(CFastInfosetReaderTest, RefusesLengthsBeyondTheInput) {
  const Row rows[] = {
      // clang-format off
      {"3C 3F'r'", TooLong("64", 6)}, {"3C 40FF'r'", TooLong("320", 6)},
      {"3C 60FFFFFFFF'r'", TooLong("4294967616", 6)}, {"3C 60FFFFFEC0'r'", TooLong("4294967297", 6)},
      {"7C00'r' 7800'a'07'x'", TooLong("8", 11)}, {"7C00'r' 7800'a'0800'x'", TooLong("9", 11)},
      {"7C00'r' 7800'a'0CFFFFFEF8'x'", TooLong("4294967297", 11)}, {"3C00'r' 81'x'", TooLong("2", 8)},
      {"3C00'r' 8200'x'", TooLong("3", 8)}, {"3C00'r' 83FFFFFEFE'x'", TooLong("4294967297", 8)},
      {"3C00'r' 8C0F7FFFFFFF", TooLong("2147483906", 9)}, {"3C 41'r'", Unexpected("41", "a length", 6)},
      {"3C00'r' 830000", "The Fast Infoset document ends too early at byte 11"},
      // clang-format on
  };
  ExpectOutcomes(rows, "E0000001 00");
}

TEST_F(CFastInfosetReaderTest, NestingCostsNoStack) {
  static constexpr size_t kDepth = 1000000;
  const std::string octets = Document("3C00'a'") + Repeat(std::string(1, '\0'), kDepth - 1) +
                             "\x80x" + Repeat("\xFF", kDepth / 2) + "\xF0";
  qv_test::RunOnSmallStack([&octets] {
    CXmlDocument document;
    LoadInto(document, octets);
    size_t depth = 0;
    const CXmlElement* element = document.GetDocumentElement();
    for (; element != nullptr; element = element->GetFirstElement()) ++depth;
    EXPECT_EQ(depth, kDepth);
    // Cut off in the depths.
    EXPECT_EQ(Outcome(octets.substr(0, kDepth)),
              "The Fast Infoset document ends too early at byte 1000000");
  });
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
  // Objects may copy the names of their elements.
  const std::string namedElement =
      Document("38CD6000001EBF") + Repeat("u", 8192) + Octets("F03D8100'r'");
  context.GetFIContext().SetMaxAmplification(100);
  for (const size_t count : {500, 20000}) {
    const std::string outcome =
        Outcome(namedElement + Repeat(Octets("00F0"), count) + "\xFF", context);
    EXPECT_EQ(outcome.find("The limit on the amplification") == 0, count == 20000) << count;
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
