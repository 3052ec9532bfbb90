// The options of Fast Infoset documents.

#ifndef QVXML_FASTINFOSET_FI_CONTEXT_H_
#define QVXML_FASTINFOSET_FI_CONTEXT_H_

#include <string>

#include "qvxml/core/item_type.h"
#include "qvxml/fastinfoset/fi_vocabulary.h"
#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

/// Tells how documents are written, which vocabulary they refer to, and what reading refuses.
///
/// A new context gives documents that every decoder of ITU-T X.891 reads: all text literal, in
/// UTF-8. A context may serve several documents at once as long as nobody changes it.
class QVXML_API CFastInfosetContext : private TInstanceCounted<CFastInfosetContext> {
 public:
  /// How the characters of a value are encoded. The numbers are fixed.
  enum EncodingKind : int {
    /// In the default string encoding.
    EncodingKind_Literal = 0,
    EncodingKind_RestrictedAlphabet = 1,
    EncodingKind_Algorithm = 2,
  };

  /// The encoding of one item type.
  struct EncodedCharacterString {
    EncodedCharacterString() = default;
    EncodedCharacterString(int kindOfEncoding, unsigned indexOfEncoding)
        : kind(static_cast<EncodingKind>(kindOfEncoding)), index(indexOfEncoding) {}

    EncodingKind kind = EncodingKind_Literal;
    /// Of the alphabet (1 numeric, 2 date and time) or of the algorithm (1 hexadecimal, 2 base64,
    /// 3 short, 4 int, 5 long, 6 boolean, 7 float, 8 double), as X.891 numbers them.
    unsigned index = 0;
  };

  CFastInfosetContext();
  CFastInfosetContext(const CFastInfosetContext& other);
  CFastInfosetContext& operator=(const CFastInfosetContext& other);
  ~CFastInfosetContext();

  // Encodings.

  /// What literal characters are written in: 0 UTF-8 (at first), 1 UTF-16 with the high octet
  /// first.
  unsigned char GetDefaultStringEncoding() const { return m_defaultStringEncoding; }
  /// Throws CQvInvalidParamException "Invalid string encoding [%d]." for any other value.
  void SetDefaultStringEncoding(unsigned char encoding);
  /// The encoding of the item type with that number, 0 to 28; literal at first. Throws
  /// CQvInvalidParamException "Invalid item type [%d].".
  EncodedCharacterString GetEncoding(int itemType) const;
  /// A value that the encoding cannot carry exactly is written as literal characters, and so are
  /// all values with a kind, alphabet or algorithm that cannot be written. Throws as above.
  void SetEncoding(int itemType, EncodedCharacterString encoding);
  /// Sets the encoding of every item type to what is compact for it: numbers and booleans in their
  /// binary forms, an unsigned type as the next larger signed one; binary data as it is; decimals,
  /// big integers, dates and times in four bits a character; the others literal.
  void SetSuggestedValues();

  // What is referred to by index when it comes again: values and runs of text of up to that many
  // characters; 6 at first, 0 for none.

  unsigned GetAttributeMaxAddLength() const { return m_attributeMaxAddLength; }
  void SetAttributeMaxAddLength(unsigned length) { m_attributeMaxAddLength = length; }
  unsigned GetElementMaxAddLength() const { return m_elementMaxAddLength; }
  void SetElementMaxAddLength(unsigned length) { m_elementMaxAddLength = length; }

  // The vocabulary that documents start from, which writer and reader must agree on.

  /// Whether documents start from GetVocabulary() and name its URI; false at first.
  bool GetUseGeneratedVocabulary() const { return m_useGeneratedVocabulary; }
  void SetUseGeneratedVocabulary(bool use) { m_useGeneratedVocabulary = use; }
  /// For the caller to fill; at first it holds what every document starts with.
  CFIVocabulary& GetVocabulary() { return m_vocabulary; }
  const CFIVocabulary& GetVocabulary() const { return m_vocabulary; }
  /// "" at first.
  const std::string& GetExternalVocabularyURI() const { return m_externalVocabularyUri; }
  /// Null is "".
  void SetExternalVocabularyURI(const char* uri);

  // What reading refuses.

  /// How many times the size of the document the strings that it refers to by index, and what its
  /// encoded values are longer as text, may add up to, beyond 8 MiB that are always allowed; 100 at
  /// first, 0 for no limit. For XML text CSerializationContext has the same.
  unsigned GetMaxAmplification() const { return m_maxAmplification; }
  void SetMaxAmplification(unsigned ratio) { m_maxAmplification = ratio; }

 private:
  friend class TInstanceCounted<CFastInfosetContext>;
  static CInstanceCounter s_instances;

  static constexpr int kItemTypes = 29;
  static void CheckItemType(int itemType);

  unsigned char m_defaultStringEncoding = 0;
  EncodedCharacterString m_encodings[kItemTypes];
  unsigned m_attributeMaxAddLength = 6;
  unsigned m_elementMaxAddLength = 6;
  bool m_useGeneratedVocabulary = false;
  CFIVocabulary m_vocabulary;
  std::string m_externalVocabularyUri;
  unsigned m_maxAmplification = 100;
};

}  // namespace QvXmlLib16

#endif  // QVXML_FASTINFOSET_FI_CONTEXT_H_
