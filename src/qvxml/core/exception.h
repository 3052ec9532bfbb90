// The exceptions in which every failure of the library is reported.

#ifndef QVXML_CORE_EXCEPTION_H_
#define QVXML_CORE_EXCEPTION_H_

#include <string>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

/// A failure: what happened, where in the document, and what caused it.
///
/// Thrown by value and caught by reference. Derives from nothing, std::exception included, so
/// callers catch this class or a subclass.
class QVXML_API CQvException {
 public:
  CQvException();
  explicit CQvException(const std::string& message);
  /// With a path that is not empty, GetMessage() is `message` + "\nPath: " + `path`.
  CQvException(const std::string& message, const std::string& path);
  /// Keeps a clone of `inner`, its own inner exceptions included.
  CQvException(const std::string& message, const CQvException& inner);
  CQvException(const std::string& message, const std::string& path, const CQvException& inner);
  /// Clones the other's inner exception.
  CQvException(const CQvException& other);
  /// Takes the other's inner exception, so that throwing a local one by name copies no chain.
  CQvException(CQvException&& other) noexcept;

  /// Copies the message and clones the inner exception. The path stays the target's own.
  CQvException& operator=(const CQvException& other);

  virtual ~CQvException();

  /// A heap copy of the most derived class, owned by the caller.
  virtual CQvException* Clone() const;

  /// The message, with the path text when a path was given.
  const std::string& GetMessage() const { return m_message; }
  /// Path of the node in the document, or "" when it is not known.
  const std::string& GetPath() const { return m_path; }
  /// What caused this one, owned by it; null when there is nothing.
  const CQvException* GetInnerException() const { return m_inner; }
  /// The messages of the whole chain, outermost first, one below the other.
  std::string GetFullMessage() const;

  /// Moves `caught` and its chain into `outer` as its inner exception, and leaves `caught` without
  /// one. Unlike the constructors that take an inner exception it copies one link, not the chain,
  /// so wrapping a failure once for each level of a deep document stays linear.
  static void MoveInto(CQvException& outer, CQvException& caught);

 private:
  friend class TInstanceCounted<CQvException>;
  static CInstanceCounter s_instances;

  // Heap copy of this link only.
  CQvException* CloneLink() const;
  static CQvException* CloneChain(const CQvException* first);
  static void DeleteChain(CQvException* first) noexcept;

  std::string m_message;
  std::string m_path;
  CQvException* m_inner = nullptr;
  TInstanceCounted<CQvException> m_counted;
};

/// A document that does not match the bound classes: a missing or unexpected element, attribute or
/// value, misuse of nil, malformed JSON.
class QVXML_API CQvValidationException : public CQvException,
                                         private TInstanceCounted<CQvValidationException> {
 public:
  CQvValidationException();
  explicit CQvValidationException(const CQvException& other);
  CQvValidationException(const std::string& message, const std::string& path);
  CQvValidationException(const std::string& message, const std::string& path,
                         const CQvException& inner);
  CQvValidationException(const CQvValidationException& other);
  CQvValidationException(CQvValidationException&& other) noexcept;
  CQvValidationException& operator=(const CQvValidationException& other) = default;
  ~CQvValidationException() override;

  CQvException* Clone() const override;

 private:
  friend class TInstanceCounted<CQvValidationException>;
  static CInstanceCounter s_instances;
};

/// A value that cannot be converted or is out of the range of its type.
class QVXML_API CQvInvalidValueException : public CQvValidationException,
                                           private TInstanceCounted<CQvInvalidValueException> {
 public:
  CQvInvalidValueException();
  explicit CQvInvalidValueException(const CQvException& other);
  explicit CQvInvalidValueException(const std::string& message);
  CQvInvalidValueException(const std::string& message, const CQvException& inner);
  CQvInvalidValueException(const CQvInvalidValueException& other);
  CQvInvalidValueException(CQvInvalidValueException&& other) noexcept;
  CQvInvalidValueException& operator=(const CQvInvalidValueException& other) = default;
  ~CQvInvalidValueException() override;

  CQvException* Clone() const override;

 private:
  friend class TInstanceCounted<CQvInvalidValueException>;
  static CInstanceCounter s_instances;
};

/// A namespace that is not allowed where it is found, or a name that must have a value.
class QVXML_API CQvInvalidNamespaceException
    : public CQvValidationException,
      private TInstanceCounted<CQvInvalidNamespaceException> {
 public:
  CQvInvalidNamespaceException();
  explicit CQvInvalidNamespaceException(const CQvException& other);
  CQvInvalidNamespaceException(const std::string& message, const std::string& path);
  CQvInvalidNamespaceException(const std::string& message, const std::string& path,
                               const CQvException& inner);
  CQvInvalidNamespaceException(const CQvInvalidNamespaceException& other);
  CQvInvalidNamespaceException(CQvInvalidNamespaceException&& other) noexcept;
  CQvInvalidNamespaceException& operator=(const CQvInvalidNamespaceException& other) = default;
  ~CQvInvalidNamespaceException() override;

  CQvException* Clone() const override;

 private:
  friend class TInstanceCounted<CQvInvalidNamespaceException>;
  static CInstanceCounter s_instances;
};

/// An operation that the object's current state does not allow.
class QVXML_API CQvInvalidStateException : public CQvException,
                                           private TInstanceCounted<CQvInvalidStateException> {
 public:
  CQvInvalidStateException();
  explicit CQvInvalidStateException(const CQvException& other);
  explicit CQvInvalidStateException(const std::string& message);
  CQvInvalidStateException(const std::string& message, const CQvException& inner);
  CQvInvalidStateException(const CQvInvalidStateException& other);
  CQvInvalidStateException(CQvInvalidStateException&& other) noexcept;
  CQvInvalidStateException& operator=(const CQvInvalidStateException& other) = default;
  ~CQvInvalidStateException() override;

  CQvException* Clone() const override;

 private:
  friend class TInstanceCounted<CQvInvalidStateException>;
  static CInstanceCounter s_instances;
};

/// A bad argument: an index out of range, null for a mandatory property, the wrong kind of value.
class QVXML_API CQvInvalidParamException : public CQvException,
                                           private TInstanceCounted<CQvInvalidParamException> {
 public:
  CQvInvalidParamException();
  explicit CQvInvalidParamException(const CQvException& other);
  explicit CQvInvalidParamException(const std::string& message);
  CQvInvalidParamException(const std::string& message, const CQvException& inner);
  CQvInvalidParamException(const CQvInvalidParamException& other);
  CQvInvalidParamException(CQvInvalidParamException&& other) noexcept;
  CQvInvalidParamException& operator=(const CQvInvalidParamException& other) = default;
  ~CQvInvalidParamException() override;

  CQvException* Clone() const override;

 private:
  friend class TInstanceCounted<CQvInvalidParamException>;
  static CInstanceCounter s_instances;
};

/// A decimal too large for the machine type asked for.
class QVXML_API CQvOverFlowException : public CQvException,
                                       private TInstanceCounted<CQvOverFlowException> {
 public:
  CQvOverFlowException();
  explicit CQvOverFlowException(const CQvException& other);
  explicit CQvOverFlowException(const std::string& message);
  CQvOverFlowException(const std::string& message, const CQvException& inner);
  CQvOverFlowException(const CQvOverFlowException& other);
  CQvOverFlowException(CQvOverFlowException&& other) noexcept;
  CQvOverFlowException& operator=(const CQvOverFlowException& other) = default;
  ~CQvOverFlowException() override;

  CQvException* Clone() const override;

 private:
  friend class TInstanceCounted<CQvOverFlowException>;
  static CInstanceCounter s_instances;
};

}  // namespace QvXmlLib16

#endif  // QVXML_CORE_EXCEPTION_H_
