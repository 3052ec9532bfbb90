#include "qvxml/xml/string_buffer.h"

#include <algorithm>
#include <utility>

namespace QvXmlLib16 {

constinit CInstanceCounter CStringBuffer::s_instances("CStringBuffer");

CStringBuffer::CStringBuffer(unsigned long size) noexcept
    : m_blockCapacity(size > 1 ? size - 1 : 1) {}

CStringBuffer::~CStringBuffer() = default;

const char* CStringBuffer::GetText() {
  if (m_blocks.empty()) return "";
  if (m_blocks.size() > 1) {
    const size_t length = GetLength();
    Block joined{std::make_unique<char[]>(length + 1), length};
    CopyTo(joined.text.get());
    m_blocks.erase(m_blocks.begin() + 1, m_blocks.end());
    m_blocks.front() = std::move(joined);
    m_fullLength = 0;
    m_begin = m_blocks.front().text.get();
    m_cursor = m_end = m_begin + length;
  }
  return m_begin;
}

std::string CStringBuffer::GetString() const {
  std::string text;
  text.reserve(GetLength());
  for (size_t i = 0; i + 1 < m_blocks.size(); ++i) {
    text.append(m_blocks[i].text.get(), m_blocks[i].length);
  }
  text.append(m_begin, static_cast<size_t>(m_cursor - m_begin));
  return text;
}

void CStringBuffer::Empty() noexcept {
  if (m_blocks.size() != 1) return Clear();
  std::fill(m_begin, m_cursor, '\0');
  m_cursor = m_begin;
}

void CStringBuffer::SetText(const char* text) { SetText(std::string(text != nullptr ? text : "")); }

void CStringBuffer::SetText(const std::string& text) {
  Empty();
  Append(text);
}

void CStringBuffer::AddNewBlock() {
  Block block{std::make_unique<char[]>(m_blockCapacity + 1), 0};
  const size_t filled = static_cast<size_t>(m_cursor - m_begin);
  m_blocks.push_back(std::move(block));
  if (m_blocks.size() > 1) m_blocks[m_blocks.size() - 2].length = filled;
  m_fullLength += filled;
  m_begin = m_cursor = m_blocks.back().text.get();
  m_end = m_begin + m_blockCapacity;
}

void CStringBuffer::AppendAcrossBlocks(const char* text, size_t length) {
  while (length != 0) {
    if (m_cursor == m_end) AddNewBlock();
    const size_t part = std::min(length, static_cast<size_t>(m_end - m_cursor));
    std::memcpy(m_cursor, text, part);
    m_cursor += part;
    text += part;
    length -= part;
  }
}

void CStringBuffer::Clear() noexcept {
  m_blocks.clear();
  m_begin = m_cursor = m_end = nullptr;
  m_fullLength = 0;
}

void CStringBuffer::CopyTo(char* target) const noexcept {
  if (m_blocks.empty()) return;
  for (size_t i = 0; i + 1 < m_blocks.size(); ++i) {
    target = std::copy_n(m_blocks[i].text.get(), m_blocks[i].length, target);
  }
  std::copy(m_begin, m_cursor, target);
}

}  // namespace QvXmlLib16
