// A text buffer that grows without moving what it holds.

#ifndef QVXML_XML_STRING_BUFFER_H_
#define QVXML_XML_STRING_BUFFER_H_

#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/xml/short_copy.h"

namespace QvXmlLib16 {

/// Collects text in blocks of fixed size. Lengths count bytes; the text may hold zero bytes.
///
///   m_blocks:   [ 4095 used | 0 ]  [ 4095 used | 0 ]  [ used ... free, zero | 0 ]
///                                                           ^m_cursor       ^m_end
///
/// Every block has one byte more than its capacity and is zero behind its text, so it is terminated
/// at any time. Full blocks are never touched again until GetText() joins them.
class QVXML_API CStringBuffer : private TInstanceCounted<CStringBuffer> {
 public:
  /// Blocks of 4095 characters.
  CStringBuffer() noexcept : CStringBuffer(kDefaultSize) {}
  /// Blocks of `size` - 1 characters, at least one.
  explicit CStringBuffer(unsigned long size) noexcept;
  CStringBuffer(const CStringBuffer&) = delete;
  CStringBuffer& operator=(const CStringBuffer&) = delete;
  virtual ~CStringBuffer();

  void Append(char character) {
    if (m_cursor == m_end) AddNewBlock();
    *m_cursor++ = character;
  }
  /// Null is empty.
  void Append(const char* text) {
    if (text != nullptr) Append(text, std::strlen(text));
  }
  void Append(const std::string& text) { Append(text.data(), text.size()); }
  void Append(const char* text, size_t length) {
    if (length > static_cast<size_t>(m_end - m_cursor)) return AppendAcrossBlocks(text, length);
    detail::CopyShort(m_cursor, text, length);
    m_cursor += length;
  }

  /// Room for that many characters one behind the other, or null when there is none at once;
  /// AdvanceTo() the end of what was written there.
  char* FindRoom(size_t length) noexcept {
    return length <= static_cast<size_t>(m_end - m_cursor) ? m_cursor : nullptr;
  }
  void AdvanceTo(char* end) noexcept { m_cursor = end; }

  /// Appends the text that number of times.
  void AppendTimes(const std::string& text, unsigned long times) {
    if (text.size() == 1 && times <= static_cast<size_t>(m_end - m_cursor)) {
      for (char* const end = m_cursor + times; m_cursor != end; ++m_cursor) *m_cursor = text[0];
    } else {
      for (; times != 0 && !text.empty(); --times) Append(text);
    }
  }

  unsigned long GetLength() const noexcept {
    return m_fullLength + static_cast<unsigned long>(m_cursor - m_begin);
  }
  /// The whole text, terminated; "" when nothing was ever appended. Valid until the buffer is next
  /// changed. Joins the blocks into one, so ask once, after the last Append.
  const char* GetText();
  /// A copy of the whole text; leaves the blocks as they are.
  std::string GetString() const;

  /// Makes the buffer empty. A single block is kept for what comes next, several are freed.
  void Empty() noexcept;
  /// Replaces the content; `text` may be the buffer's own. Null is empty.
  void SetText(const char* text);
  void SetText(const std::string& text);

 private:
  friend class TInstanceCounted<CStringBuffer>;
  static CInstanceCounter s_instances;

  static constexpr unsigned long kDefaultSize = 4096;

  struct Block {
    std::unique_ptr<char[]> text;
    // Set when the next block is opened; that of the last block follows from m_cursor.
    size_t length;
  };

  void AddNewBlock();
  void AppendAcrossBlocks(const char* text, size_t length);
  void Clear() noexcept;
  // Copies the text of all blocks to `target`.
  void CopyTo(char* target) const noexcept;

  const size_t m_blockCapacity;
  std::vector<Block> m_blocks;
  // The text of the last block, the place for the next character, and the end of the capacity.
  char* m_begin = nullptr;
  char* m_cursor = nullptr;
  char* m_end = nullptr;
  // Characters in all blocks but the last.
  unsigned long m_fullLength = 0;
};

}  // namespace QvXmlLib16

#endif  // QVXML_XML_STRING_BUFFER_H_
