// What calls of writers are made of, chosen by the bytes of the input.

#ifndef FUZZ_WRITER_INPUT_H_
#define FUZZ_WRITER_INPUT_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>

inline constexpr char kXml[] = "http://www.w3.org/XML/1998/namespace";
inline constexpr char kXsi[] = "http://www.w3.org/2001/XMLSchema-instance";

/// Behind the end there are zeros.
class Input {
 public:
  Input(const uint8_t* data, size_t size) : m_next(data), m_end(data + size) {}
  bool IsAtEnd() const { return m_next == m_end; }
  uint8_t Byte() { return m_next == m_end ? 0 : *m_next++; }

  std::string LocalName() {
    static const char* const kNames[] = {"a", "b", "type", "long-name.with_marks", "\xC3\xA9"};
    return kNames[Byte() % std::size(kNames)];
  }
  std::string Prefix() {
    static const char* const kPrefixes[] = {"p", "q", "AA", "AC", "xsi", ""};
    return kPrefixes[Byte() % std::size(kPrefixes)];
  }
  // High bytes choose among many, for generated prefixes of three letters.
  std::string Namespace() {
    static const char* const kNamespaces[] = {"",
                                              "urn:a",
                                              "urn:b",
                                              "urn:?x=1&y=\"<'>",
                                              kXml,
                                              kXsi,
                                              "http://www.w3.org/XML/1998/namespace/x"};
    const uint8_t choice = Byte();
    if (choice >= 0x80) return "urn:" + std::to_string((choice - 0x80) * 256 + Byte());
    return kNamespaces[choice % std::size(kNamespaces)];
  }
  std::string Text() {
    static const char* const kPieces[] = {"x",
                                          "&",
                                          "<",
                                          ">",
                                          "\"",
                                          "'",
                                          "\n",
                                          "\r",
                                          "\r\n",
                                          "\t",
                                          " ",
                                          "]]>",
                                          "\xC3\xA9",
                                          "\xE2\x82\xAC",
                                          "\xF0\x9D\x84\x9E",
                                          "0123456789abcdef",
                                          "&amp;",
                                          "--",
                                          "<![CDATA[",
                                          "\x7F"};
    std::string text;
    for (size_t count = Byte() % 8; count > 0; --count)
      text += kPieces[Byte() % std::size(kPieces)];
    if (Byte() == 0xFF) text.append(5000, 'y');
    return text;
  }
  std::string AnyBytes() {
    size_t count = Byte();
    count = std::min(count, static_cast<size_t>(m_end - m_next));
    m_next += count;
    return std::string(reinterpret_cast<const char*>(m_next - count), count);
  }

 private:
  const uint8_t* m_next;
  const uint8_t* const m_end;
};

#endif  // FUZZ_WRITER_INPUT_H_
