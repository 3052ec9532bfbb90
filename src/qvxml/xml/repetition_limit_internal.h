// How far a small document may blow up in reading, for the readers of all formats.

#ifndef QVXML_XML_REPETITION_LIMIT_INTERNAL_H_
#define QVXML_XML_REPETITION_LIMIT_INTERNAL_H_

#include <cstddef>
#include <limits>

namespace QvXmlLib16::detail {

// As of libexpat's own limit on entities.
inline constexpr size_t kRepetitionAlwaysAllowed = size_t{8} << 20;

/// A name that is used again takes time but no memory, except in objects that have names of their
/// own: one part in so many counts.
inline constexpr size_t kRepeatedNameShare = 4;

/// Bytes that the input may make a reader repeat; a `ratio` of 0 sets no limit.
inline size_t RepetitionLimit(size_t inputLength, size_t ratio) {
  constexpr size_t kNoLimit = std::numeric_limits<size_t>::max();
  if (ratio == 0 || inputLength > (kNoLimit - kRepetitionAlwaysAllowed) / ratio) return kNoLimit;
  return ratio * inputLength + kRepetitionAlwaysAllowed;
}

}  // namespace QvXmlLib16::detail

#endif  // QVXML_XML_REPETITION_LIMIT_INTERNAL_H_
