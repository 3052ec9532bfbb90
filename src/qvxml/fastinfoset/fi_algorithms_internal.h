// Values as the octets of restricted alphabets and encoding algorithms.

#ifndef QVXML_FASTINFOSET_FI_ALGORITHMS_INTERNAL_H_
#define QVXML_FASTINFOSET_FI_ALGORITHMS_INTERNAL_H_

#include <cstddef>
#include <string_view>

namespace QvXmlLib16::detail {

// Each pair works alike: the first gives the number of octets that a text will take, or 0 for one
// that cannot be carried; the second writes them, and returns false for a text that the octets do
// not stand for exactly: what was written is void then.

/// For texts that are not empty. 0 for alphabets that do not exist.
size_t GetAlphabetLength(unsigned alphabet, std::string_view text) noexcept;
/// The letter e of the numeric alphabet is not used, as some decoders take it for E.
bool WriteInAlphabet(unsigned alphabet, std::string_view text, unsigned char* to) noexcept;

/// For the algorithms 1 to 8 with a single value. Texts of numbers and booleans are to be in their
/// canonical form; float and double only keep the value, of up to 7 and 16 digits.
size_t GetAlgorithmLength(unsigned algorithm, std::string_view text) noexcept;
bool WriteByAlgorithm(unsigned algorithm, std::string_view text, unsigned char* to);

}  // namespace QvXmlLib16::detail

#endif  // QVXML_FASTINFOSET_FI_ALGORITHMS_INTERNAL_H_
