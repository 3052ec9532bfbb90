// Mutation of Fast Infoset documents.

#ifndef FUZZ_FI_MUTATOR_H_
#define FUZZ_FI_MUTATOR_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

// Of libFuzzer; the replay main does without.
extern "C" __attribute__((weak)) size_t LLVMFuzzerMutate(uint8_t* data, size_t size,
                                                         size_t maxSize);
extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize,
                                          unsigned seed);

/// Works on indices, lengths and whole items, which changes of single octets seldom hit.
class FIMutator {
 public:
  static constexpr size_t kHeaderSize = 5;

  /// The document begins behind `optionBytes` of the input.
  FIMutator(const uint8_t* data, size_t size, size_t optionBytes, unsigned seed)
      : m_data(data, data + size), m_optionBytes(optionBytes), m_random(seed) {}

  /// The input must hold the options and a header.
  std::vector<uint8_t> Run() {
    // Behind the header, as a rule.
    const size_t first = Below(16) == 0 ? m_optionBytes : m_optionBytes + kHeaderSize;
    const size_t place = first + Below(m_data.size() - first + 1);
    switch (Below(6)) {
      case 0:
        Insert(place, Integer());
        break;
      case 1:
        Replace(place, Integer());
        break;
      case 2:
        Insert(place, Item());
        break;
      case 3:
        Insert(place, Part(place));
        break;
      case 4:
        Erase(place, 1 + Below(8));
        break;
      default:
        Resize(place);
    }
    return std::move(m_data);
  }

 private:
  using Octets = std::vector<uint8_t>;

  size_t Below(size_t limit) { return m_random() % limit; }

  void Insert(size_t place, const Octets& octets) {
    m_data.insert(m_data.begin() + static_cast<std::ptrdiff_t>(place), octets.begin(),
                  octets.end());
  }
  void Erase(size_t place, size_t count) {
    const size_t end = std::min(place + count, m_data.size());
    m_data.erase(m_data.begin() + static_cast<std::ptrdiff_t>(place),
                 m_data.begin() + static_cast<std::ptrdiff_t>(end));
  }
  void Replace(size_t place, const Octets& octets) {
    Erase(place, octets.size());
    Insert(place, octets);
  }
  Octets Part(size_t place) {
    const size_t end = std::min(place + 1 + Below(24), m_data.size());
    return Octets(m_data.begin() + static_cast<std::ptrdiff_t>(place),
                  m_data.begin() + static_cast<std::ptrdiff_t>(end));
  }
  // Takes the octet for a length, and changes it together with what follows.
  void Resize(size_t place) {
    if (place == m_data.size()) return;
    const bool grows = Below(2) != 0;
    m_data[place] = static_cast<uint8_t>(m_data[place] + (grows ? 1 : -1));
    if (grows) {
      Insert(place + 1, {static_cast<uint8_t>('a' + Below(4))});
    } else {
      Erase(place + 1, 1);
    }
  }

  // An index or a length of any place, at or next to a bound of its forms.
  Octets Integer() {
    static const std::vector<Octets> kBounds = {{0x00},
                                                {0x01},
                                                {0x1F},
                                                {0x20, 0x00},
                                                {0x27, 0xFF},
                                                {0x28, 0x00, 0x00},
                                                {0x3F},
                                                {0x40, 0x00},
                                                {0x5F, 0xFF},
                                                {0x80},
                                                {0x81},
                                                {0xBF},
                                                {0xC0, 0x00},
                                                {0xDF, 0xFF},
                                                {0xA0},
                                                {0xA1},
                                                {0xAF},
                                                {0xB0, 0x00},
                                                {0xB3, 0xFF},
                                                {0xFF},
                                                {0x08, 0x00},
                                                {0x82, 0x00},
                                                {0x40, 0xFF},
                                                {0x60, 0x00, 0x00},
                                                {0x6F, 0xDF, 0xBF},
                                                {0x6F, 0xDF, 0xC0},
                                                {0xE0, 0x00, 0x00},
                                                {0xEF, 0xDF, 0xBF},
                                                {0xB4, 0x00, 0x00},
                                                {0x30, 0x00, 0x00, 0x00},
                                                {0x30, 0x07, 0xF7, 0xDF},
                                                {0x30, 0x0F, 0xFF, 0xFF},
                                                {0xB8, 0x00, 0x00, 0x00},
                                                {0xB8, 0x0B, 0xFB, 0xEF},
                                                {0xB8, 0x0B, 0xFB, 0xF0},
                                                {0x60, 0xFF, 0xFF, 0xFE, 0xBF},
                                                {0x60, 0xFF, 0xFF, 0xFE, 0xC0},
                                                {0x0C, 0xFF, 0xFF, 0xFE, 0xF8},
                                                {0x83, 0xFF, 0xFF, 0xFE, 0xFE},
                                                {0x8F, 0xFF, 0x7F},
                                                {0x8F, 0xFF, 0x80}};
    Octets octets = kBounds[Below(kBounds.size())];
    if (Below(4) == 0)
      octets.back() = static_cast<uint8_t>(octets.back() + (Below(2) != 0 ? 1 : -1));
    return octets;
  }

  // Something whole, so that what follows it keeps its meaning.
  Octets Item() {
    static const std::vector<Octets> kItems = {
        {0xF0},
        {0xFF},
        {0x3C, 0x00, 'r', 0xF0},
        {0x00, 0xF0},
        {0x38, 0xCF, 0x00, 'p', 0x00, 'u', 0xF0, 0x3F, 0x81, 0x81, 0x00, 'q', 0xF0},
        {0x38, 0xCD, 0x81, 0xF0, 0x3D, 0x81, 0x80, 0xF0},
        {0x78, 0xCC, 0xF0, 0x3C, 0x80, 0x78, 0x00, 'a', 0x40, 'v', 0xFF},
        {0x78, 0x00, 'b', 0x80},
        {0x7B, 0x80, 0x80, 0x00, 'l', 0x01, 'e', 'n'},
        {0x90, 'x'},
        {0x82, 0x03, 'a', '\r', '\n', 'b', 'c', 'd'},
        {0x85, 0xD8, 0x3D},
        {0x96, 0x01, 0xD8, 0x3D, 0xDE, 0x00},
        {0x88, 0x01, 0x12, 0xC5},
        {0x9C, 0x0E, 0x01, 0x80, 0x00, 0x00, 0x00},
        {0x8C, 0x12, 0x05, 0x7F, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF},
        {0x8C, 0x14, 0x0B},
        {0x8C, 0x1A, 0x01, 0x7F, 0x7F, 0xFF, 0xFF},
        {0x8C, 0x1E, 0x05, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x01},
        {0x8C, 0x26, 0x00, 'c', 'd', '<'},
        {0x8C, 0x05, 0x04, 'b', 'a', 's', 'e', '6', '4', 'b', 'a', 's'},
        {0xC8, 0x00, 'e'},
        {0xC4, 0xF0},
        {0xE1, 0x00, 'p', 0xFF},
        {0xE2, 0x40, 'c'},
        {0xE2, 0x80}};
    return kItems[Below(kItems.size())];
  }

  Octets m_data;
  const size_t m_optionBytes;
  std::minstd_rand m_random;
};

/// What a target's LLVMFuzzerCustomMutator does.
inline size_t MutateFastInfoset(uint8_t* data, size_t size, size_t maxSize, size_t optionBytes,
                                unsigned seed) {
  if (size < optionBytes + FIMutator::kHeaderSize || seed % 3 == 0) {
    return LLVMFuzzerMutate(data, size, maxSize);
  }
  const std::vector<uint8_t> mutated = FIMutator(data, size, optionBytes, seed).Run();
  const size_t kept = std::min(mutated.size(), maxSize);
  std::copy_n(mutated.begin(), kept, data);
  return kept;
}

#endif  // FUZZ_FI_MUTATOR_H_
