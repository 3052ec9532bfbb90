// Numbers and texts of ITU-T X.891 that writing and reading share.

#ifndef QVXML_FASTINFOSET_FI_ENCODING_INTERNAL_H_
#define QVXML_FASTINFOSET_FI_ENCODING_INTERNAL_H_

#include <cstdint>
#include <string_view>

namespace QvXmlLib16::detail::fi {

// The header.

inline constexpr unsigned char kIdentification[] = {0xE0, 0x00};
inline constexpr unsigned char kVersion[] = {0x00, 0x01};

/// One form of XML declaration, and what it says of the document.
struct Declaration {
  std::string_view text;
  /// "" when the form names none.
  std::string_view version;
  /// 'y', 'n', or 0 when the form does not tell.
  char standalone;
};

/// Indexed by FInfoDecl.
inline constexpr Declaration kDeclarations[] = {
    {"", "", 0},
    {"<?xml encoding='finf'?>", "", 0},
    {"<?xml encoding='finf' standalone='yes'?>", "", 'y'},
    {"<?xml encoding='finf' standalone='no'?>", "", 'n'},
    {"<?xml version='1.0' encoding='finf'?>", "1.0", 0},
    {"<?xml version='1.0' encoding='finf' standalone='yes'?>", "1.0", 'y'},
    {"<?xml version='1.0' encoding='finf' standalone='no'?>", "1.0", 'n'},
    {"<?xml version='1.1' encoding='finf'?>", "1.1", 0},
    {"<?xml version='1.1' encoding='finf' standalone='yes'?>", "1.1", 'y'},
    {"<?xml version='1.1' encoding='finf' standalone='no'?>", "1.1", 'n'},
};

/// Bits of the optional-components octet, in the order of the components.
enum Component : unsigned char {
  kAdditionalData = 0x40,
  kInitialVocabulary = 0x20,
  kNotations = 0x10,
  kUnparsedEntities = 0x08,
  kCharacterEncodingScheme = 0x04,
  kStandalone = 0x02,
  kVersionComponent = 0x01,
};

/// Bits of the first octet of an initial vocabulary.
inline constexpr unsigned char kExternalVocabulary = 0x10;

// First octets.

inline constexpr unsigned char kElementAttributes = 0x40;
inline constexpr unsigned char kElementNamespaces = 0x38;
inline constexpr unsigned char kElementLiteralName = 0x3C;
inline constexpr unsigned char kAttributeLiteralName = 0x78;
/// In literal names and namespace attributes.
inline constexpr unsigned char kHasPrefix = 0x02;
inline constexpr unsigned char kHasNamespace = 0x01;
inline constexpr unsigned char kNamespaceAttribute = 0xCC;
inline constexpr unsigned char kChunkLiteral = 0x80;
inline constexpr unsigned char kChunkIndex = 0xA0;
inline constexpr unsigned char kDocumentTypeDeclaration = 0xC4;
inline constexpr unsigned char kEntityReference = 0xC8;
inline constexpr unsigned char kProcessingInstruction = 0xE1;
inline constexpr unsigned char kComment = 0xE2;
/// In front of an index in place of a literal string.
inline constexpr unsigned char kIndexFollows = 0x80;
inline constexpr unsigned char kTerminator = 0xF0;
inline constexpr unsigned char kTwoTerminators = 0xFF;
inline constexpr unsigned char kEmptyString = 0xFF;
inline constexpr unsigned char kAddToTableInValue = 0x40;
inline constexpr unsigned char kAddToTableInChunk = 0x10;

// Tables.

/// Entries of a table, those that every table begins with included.
inline constexpr unsigned kMaxEntries = 1u << 20;
/// Of alphabets and of algorithms, and where those of a document begin.
inline constexpr unsigned kMaxAlphabets = 256;
inline constexpr unsigned kMaxAlgorithms = 256;
inline constexpr unsigned kFirstFreeAlphabet = 16;
inline constexpr unsigned kFirstFreeAlgorithm = 32;

/// Entry 1 of the prefix and of the namespace name table.
inline constexpr std::string_view kXmlPrefix = "xml";
inline constexpr std::string_view kXmlNamespace = "http://www.w3.org/XML/1998/namespace";

// Character strings.

/// The two bits that tell how characters are encoded.
enum StringForm : unsigned char {
  kUtf8 = 0,
  kUtf16 = 1,
  kRestrictedAlphabet = 2,
  kEncodingAlgorithm = 3,
};

enum Alphabet : unsigned char { kNumeric = 1, kDateAndTime = 2 };

/// A character's position is its value, in four bits; 15 fills the last octet up.
inline constexpr std::string_view kNumericCharacters = "0123456789-+.e ";
inline constexpr std::string_view kDateAndTimeCharacters = "0123456789-:TZ ";
inline constexpr unsigned kAlphabetFiller = 15;

enum Algorithm : unsigned char {
  kHexadecimal = 1,
  kBase64 = 2,
  kShort = 3,
  kInt = 4,
  kLong = 5,
  kBoolean = 6,
  kFloat = 7,
  kDouble = 8,
  kUuid = 9,
  kCData = 10,
};

/// Octets of a single value.
inline constexpr unsigned char kOneTrue = 0x38;
inline constexpr unsigned char kOneFalse = 0x30;
inline constexpr std::uint32_t kFloatNaN = 0x7FC00000u;
inline constexpr std::uint64_t kDoubleNaN = 0x7FF8000000000000u;

// Where each form of an integer begins: the first value that takes the next longer form.

/// Indices on the second, third and fourth bit of an octet; the last bound is beyond every form.
inline constexpr unsigned kIndexOnSecondBit[] = {1, 65, 8257, kMaxEntries + 1};
inline constexpr unsigned kIndexOnThirdBit[] = {1, 33, 2081, 526369, kMaxEntries + 1};
inline constexpr unsigned kIndexOnFourthBit[] = {1, 17, 1041, 263185, kMaxEntries + 1};
/// Count of a list.
inline constexpr unsigned kCountOnFirstBit[] = {1, 129, kMaxEntries + 1};

/// Lengths in octets.
inline constexpr std::uint64_t kLengthOnSecondBit[] = {1, 65, 321};
inline constexpr std::uint64_t kLengthOnFifthBit[] = {1, 9, 265};
inline constexpr std::uint64_t kLengthOnSeventhBit[] = {1, 3, 259};
inline constexpr std::uint64_t kMaxLength = std::uint64_t{1} << 32;

}  // namespace QvXmlLib16::detail::fi

#endif  // QVXML_FASTINFOSET_FI_ENCODING_INTERNAL_H_
