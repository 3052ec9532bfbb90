// The byte buffer of the library: binary values, encoded output and whole documents.

#ifndef QVXML_TYPES_BINARY_DATA_H_
#define QVXML_TYPES_BINARY_DATA_H_

#include <atomic>
#include <string>

#include "qvxml/support/critical_section.h"
#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

/// A sequence of bytes. Copies share one block and part when one of them is about to change it.
///
/// Lengths and indices count bytes. A value of no bytes has no block: however it came about, its
/// data pointer is null, and two such values are equal. A null pointer given as input stands for no
/// bytes, whatever length comes with it.
///
/// Values that share a block may be copied, changed and destroyed on different threads; a single
/// value must not be changed on one thread while another uses it. When memory is short operations
/// throw std::bad_alloc and leave the value as it was.
class QVXML_API CBinaryData : private TInstanceCounted<CBinaryData> {
 public:
  class CDataHolder;

  // Construction, copies.

  CBinaryData() noexcept = default;
  /// With `adopt` takes over `bytes`, which must come from `new unsigned char[]` and then belongs
  /// to this value, even when memory is short (it is freed at once when `length` is 0); without it
  /// copies them.
  CBinaryData(unsigned char* bytes, unsigned long length, bool adopt);
  /// Copies `length` bytes.
  CBinaryData(const unsigned char* bytes, unsigned long length);
  /// Copies the text without its terminating zero.
  explicit CBinaryData(const char* text);
  /// Shares the other's block.
  CBinaryData(const CBinaryData& other);
  /// Leaves the other empty.
  CBinaryData(CBinaryData&& other) noexcept;
  CBinaryData& operator=(const CBinaryData& other);
  CBinaryData& operator=(CBinaryData&& other) noexcept;
  virtual ~CBinaryData();

  // Content.

  /// The bytes, or null when there are none. Valid until this value is next changed or destroyed.
  const unsigned char* GetData() const noexcept;
  unsigned long GetLength() const noexcept;
  /// Whether lengths and bytes are equal.
  bool operator==(const CBinaryData& other) const noexcept;
  bool operator!=(const CBinaryData& other) const noexcept { return !(*this == other); }
  /// Address of a byte, or with index == GetLength() the address just after the last one, which
  /// must not be read. Throws CQvException "Index Out of range [%d]" for a larger index, and for
  /// every index of an empty value.
  const unsigned char* operator[](unsigned long index) const;
  /// As above, for writing: the value stops sharing its block first. The address serves until this
  /// value is next copied, changed or destroyed.
  unsigned char* operator[](unsigned long index);

  // Change.

  /// Appends a copy; the bytes may be this value's own.
  void Append(const unsigned char* bytes, unsigned long length);
  void Append(unsigned char byte);
  void Append(char byte);
  /// Appends the text without its terminating zero.
  void Append(const char* text);
  void Append(const std::string& text);
  void Append(const CBinaryData& other);

  /// Replaces the content by a copy; the bytes may be this value's own.
  void SetBuffer(const unsigned char* bytes, unsigned long length);
  /// Replaces the content by the text without its terminating zero.
  void SetBuffer(const char* text);
  /// Makes the value empty.
  void Clear() noexcept;
  /// Hands the bytes to the caller, who frees them with `delete[]`, and leaves this value empty;
  /// null for an empty value. Ask for the length first.
  unsigned char* ReleaseData();

  // Text forms.

  /// Two upper-case digits for each byte; "" for an empty value.
  std::string GetAsHexString() const;
  /// Appends the same to `text`.
  void AppendHexTo(std::string& text) const;
  /// Sets the bytes that hexadecimal text stands for; digits of either case, no whitespace. Null
  /// and "" make the value empty. Throws as ConvertToHexData does, and then changes nothing.
  void SetAsHexString(const char* hex);
  /// As above for `length` characters, which need no NUL behind them.
  void SetAsHexString(const char* hex, unsigned long length);
  /// Base64 text as CBase64::Encode writes it; "" for an empty value.
  std::string GetAsBase64() const;
  /// Appends the same to `text`.
  void AppendBase64To(std::string& text) const;
  /// Sets the bytes that base64 text stands for, read by CBase64::Decode. Null and "" make the
  /// value empty. Throws as Decode does, and then changes nothing.
  void SetAsBase64(const char* base64);
  /// As above for `length` characters, which need no NUL behind them.
  void SetAsBase64(const char* base64, unsigned long length);

  /// Two upper-case digits for each of `length` bytes.
  static std::string GetAsHexString(const unsigned char* bytes, unsigned long length);
  /// Reads hexadecimal text into `*out`, a buffer that the caller frees with `delete[]`, and
  /// returns its length, half that of the text. Null and "" give a null buffer and 0.
  ///
  /// Throws CQvException "Invalid length in hex string" for an odd number of characters, or else
  /// "Invalid char in hex string [%c]" for the first that is not a digit; `*out` is then null.
  static unsigned long ConvertToHexData(const char* hex, unsigned char** out);
  /// As above for `textLength` characters, which need no NUL behind them.
  static unsigned long ConvertToHexData(const char* hex, unsigned long textLength,
                                        unsigned char** out);

 private:
  friend class TInstanceCounted<CBinaryData>;
  static CInstanceCounter s_instances;

  void MakeExclusive();
  void CheckIndex(unsigned long index) const;

  CDataHolder* m_holder = nullptr;
};

/// The block that copies of a CBinaryData share. Counts its references, starting at 1, and destroys
/// itself when the last one is released.
class QVXML_API CBinaryData::CDataHolder : private TInstanceCounted<CBinaryData::CDataHolder> {
 public:
  /// With `adopt` takes over `bytes`, made by `new unsigned char[]`, with capacity == `length`;
  /// otherwise copies them into a buffer of max(8192, 2 * `length`) bytes.
  CDataHolder(unsigned char* bytes, unsigned long length, bool adopt);
  CDataHolder(const unsigned char* bytes, unsigned long length);
  CDataHolder(const CDataHolder&) = delete;
  CDataHolder& operator=(const CDataHolder&) = delete;

  unsigned char* GetData() const noexcept { return m_data; }
  unsigned long GetLength() const noexcept { return m_length; }
  /// Bytes allocated.
  unsigned long GetCapacity() const noexcept { return m_capacity; }
  long GetRefCount() const noexcept { return m_refCount.load(std::memory_order_acquire); }

  void AddRef();
  /// Drops the caller's reference. Without `keepData` the last one destroys holder and buffer. With
  /// `keepData` the last one destroys the holder only, and the buffer belongs to the caller, who
  /// took its address before; when other references remain that throws CQvException "Failed to
  /// release data. [RefCount=%d]" (how many), the caller's being dropped all the same.
  void Release(bool keepData);
  /// Appends a copy of the bytes, which may lie in this block. A full buffer is replaced by one of
  /// twice the new length. Throws CQvException "Failed to append. [RefCount=%d]", with the number
  /// of references, unless there is only one.
  void Append(const unsigned char* bytes, unsigned long length);
  /// This holder when the caller's reference is the only one; otherwise a copy, in exchange for the
  /// caller's reference to this one.
  CDataHolder* GetExclusiveCopy();

 private:
  friend class CBinaryData;
  friend class TInstanceCounted<CBinaryData::CDataHolder>;
  static CInstanceCounter s_instances;

  ~CDataHolder();

  // How many references are left.
  long DropReference() noexcept;
  // Release(false), which cannot fail.
  void Release() noexcept;
  // Without the lock; for a caller whose reference is the only one.
  void AppendExclusive(const unsigned char* bytes, unsigned long length);
  bool HasOneReference() const noexcept { return GetRefCount() < 2; }

  unsigned char* m_data;
  unsigned long m_length;
  unsigned long m_capacity;
  // Changed under the lock only. Atomic, so that an owner can see that it is alone without it.
  std::atomic<long> m_refCount{1};
  CQVCriticalSection m_section;
};

}  // namespace QvXmlLib16

#endif  // QVXML_TYPES_BINARY_DATA_H_
