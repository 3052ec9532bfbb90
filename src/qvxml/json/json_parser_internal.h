// The structure of a JSON text: values, objects, arrays.

#ifndef QVXML_JSON_JSON_PARSER_INTERNAL_H_
#define QVXML_JSON_JSON_PARSER_INTERNAL_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "qvxml/core/error_path_provider.h"

namespace QvXmlLib16::detail {

/// Reads a text without recursion and reports its tokens to `TEvents`, which has the operations of
/// IJsonReaderHandler without "Read" and takes text as views that are valid during the call; a name
/// until the next one. It also has RepeatsArrayNames: whether it writes an array's name for each of
/// its items, which is then limited. `TLexer` is the grammar of the tokens.
///
/// Knows its path as CJsonReaderDefaultHandler does, but makes it only when it is asked for.
template <class TLexer, class TEvents>
class TJsonParser final : public IErrorPathProvider {
 public:
  /// The lexer's arguments are the text, who tells the path (this parser when null), and `rest`.
  template <class... TRest>
  TJsonParser(std::string_view text, IErrorPathProvider* paths, std::string_view rootName,
              size_t maxDepth, const TRest&... rest)
      : m_lexer(text, paths != nullptr ? *paths : *this, rest...),
        m_rootName(rootName),
        m_maxDepth(maxDepth),
        m_textLength(text.size()) {}

  void Read(TEvents& events) {
    m_events = &events;
    if (events.RepeatsArrayNames()) {
      m_repetitionLimit = kMaxAmplification * m_textLength + kRepetitionAlwaysAllowed;
    }
    events.StartDocument();
    const bool hasRootName = !m_rootName.empty();
    if (hasRootName) {
      events.StartObject();
      m_isInRoot = true;
      events.Name(m_rootName);
    }
    if (m_lexer.Start()) ReadTree();
    m_isInRoot = false;
    m_lexer.Finish();
    if (hasRootName) events.EndObject();
    events.EndDocument();
  }

  std::string GetPath() override {
    std::string path = "$";
    if (m_isInRoot) path.append(".").append(m_rootName);
    for (const CLevel& level : m_levels) {
      if (level.IsArray()) {
        path.append("[").append(std::to_string(level.index)).append("]");
      } else if (level.name != nullptr) {
        path.append(".").append(ReadNameAgain(level.name));
      }
    }
    return path;
  }

 private:
  // Of the same size as the limits on what XML may repeat.
  static constexpr size_t kMaxAmplification = 100;
  static constexpr size_t kRepetitionAlwaysAllowed = size_t{8} << 20;
  static constexpr size_t kObject = static_cast<size_t>(-1);

  struct CLevel {
    // Behind the quotation mark of the current member's name, null between members.
    const char* name;
    // Of the current item; kObject in an object.
    size_t index;
    // Bytes of the name in an object; what each item repeats in an array.
    size_t length;

    bool IsArray() const noexcept { return index != kObject; }
  };

  // The current character begins a value.
  void ReadTree() {
    while (BeginValue() || NextValue()) {
    }
  }

  // Reads a value, or the beginning of one: true when the current character begins the first value
  // inside it.
  bool BeginValue() {
    if (m_levels.size() >= m_maxDepth) {
      m_lexer.Fail("JSON exceeded depth limit at line %d, position %d.");
    }
    switch (m_lexer.GetCurrent()) {
      case '"':
        m_events->String(m_lexer.ReadString(m_value));
        return false;
      case '{':
        return BeginObject();
      case '[':
        return BeginArray();
      case 't':
        m_lexer.ReadTrue();
        m_events->Bool(true);
        return false;
      case 'f':
        m_lexer.ReadFalse();
        m_events->Bool(false);
        return false;
      case 'n':
        m_lexer.ReadNull();
        m_events->Null();
        return false;
      case '-':
      case '0':
      case '1':
      case '2':
      case '3':
      case '4':
      case '5':
      case '6':
      case '7':
      case '8':
      case '9':
        m_events->Number(m_lexer.ReadNumber(m_value));
        return false;
      default:
        m_lexer.FailFound(
            "Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found '%c' at line %d, position %d.");
    }
  }

  bool BeginObject() {
    m_events->StartObject();
    m_levels.push_back({nullptr, kObject, 0});
    if (!m_lexer.Next()) FailUnclosedObject();
    if (m_lexer.GetCurrent() == '}') {
      EndObject();
      return false;
    }
    ReadName();
    return true;
  }

  bool BeginArray() {
    m_events->StartArray();
    m_levels.push_back({nullptr, 0, GetItemCost()});
    if (!m_lexer.Next()) FailUnclosedArray();
    if (m_lexer.GetCurrent() == ']') {
      EndArray();
      return false;
    }
    ChargeItem();
    return true;
  }

  // A value has ended: goes to the next one, and before that ends what ends with it. False behind
  // the outermost value.
  bool NextValue() {
    while (!m_levels.empty()) {
      if (m_levels.back().IsArray() ? NextItem() : NextMember()) return true;
    }
    return false;
  }

  bool NextItem() {
    ++m_levels.back().index;
    if (!m_lexer.Next()) FailUnclosedArray();
    if (m_lexer.GetCurrent() == ',') {
      if (!m_lexer.Next()) FailUnclosedArray();
      ChargeItem();
      return true;
    }
    if (m_lexer.GetCurrent() != ']') {
      m_lexer.FailFound(
          "Expected Array separator character ',', found '%c' at line %d, position %d.");
    }
    EndArray();
    return false;
  }

  bool NextMember() {
    m_levels.back().name = nullptr;
    if (!m_lexer.Next()) FailUnclosedObject();
    if (m_lexer.GetCurrent() == ',') {
      if (!m_lexer.Next()) {
        m_lexer.Fail(
            "Unexpected End of File. Expected Object terminator character '}}' at line %d, position %d.");
      }
      ReadName();
      return true;
    }
    if (m_lexer.GetCurrent() != '}') {
      m_lexer.FailFound(
          "Expected Object separator character ',', found '%c' at line %d, position %d.");
    }
    EndObject();
    return false;
  }

  void EndObject() {
    m_levels.pop_back();
    m_events->EndObject();
  }

  void EndArray() {
    m_levels.pop_back();
    m_events->EndArray();
  }

  // Reads a name and goes to the first character of its value.
  void ReadName() {
    if (m_lexer.GetCurrent() != '"') {
      m_lexer.FailFound(
          "Expected quotation mark character '\"' before Name, found '%c' at line %d, position %d.");
    }
    const char* const start = m_lexer.GetPosition();
    const std::string_view name = m_lexer.ReadString(m_name);
    m_levels.back().name = start;
    m_levels.back().length = name.size();
    m_events->Name(name);
    if (!m_lexer.Next()) {
      m_lexer.Fail(
          "Unexpected End of File. Expected Object Name/Value separator character ':' at line %d, position %d.");
    }
    if (m_lexer.GetCurrent() != ':') {
      m_lexer.FailFound(
          "Expected Object Name/Value separator character ':', found '%c' at line %d, position %d.");
    }
    if (!m_lexer.Next()) {
      m_lexer.Fail("Unexpected End of File. Expected Object Value at line %d, position %d.");
    }
  }

  [[noreturn]] void FailUnclosedObject() const {
    m_lexer.Fail(
        "Unexpected End of File. Expected Object terminator character '}' at line %d, position %d.");
  }

  [[noreturn]] void FailUnclosedArray() const {
    m_lexer.Fail(
        "Unexpected End of File. Expected Array terminator character ']' at line %d, position %d.");
  }

  // In XML each item of an array becomes an element with the array's name, indented: a short text
  // with a long name could ask for any amount of memory.
  size_t GetItemCost() const noexcept {
    const size_t nameLength = m_levels.empty() ? m_rootName.size() : m_levels.back().length;
    return 2 * nameLength + m_levels.size();
  }
  void ChargeItem() {
    m_repeatedBytes += m_levels.back().length;
    if (m_repeatedBytes > m_repetitionLimit) {
      m_lexer.Fail("JSON exceeded size limit at line %d, position %d.");
    }
  }

  std::string ReadNameAgain(const char* start) const {
    TLexer lexer = m_lexer;
    lexer.MoveTo(start);
    std::string scratch;
    return std::string(lexer.ReadString(scratch));
  }

  TLexer m_lexer;
  const std::string_view m_rootName;
  const size_t m_maxDepth;
  const size_t m_textLength;
  size_t m_repetitionLimit = static_cast<size_t>(-1);
  size_t m_repeatedBytes = 0;
  TEvents* m_events = nullptr;
  bool m_isInRoot = false;
  std::vector<CLevel> m_levels;
  std::string m_name;
  std::string m_value;
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_JSON_JSON_PARSER_INTERNAL_H_
