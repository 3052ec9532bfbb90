#include "qvxml/core/exception.h"

#include <utility>

namespace QvXmlLib16 {

namespace {

// The exception of which a copy takes the one link and leaves the chain to the loop in CloneChain:
// user classes override only Clone, so the copy constructor is the one place that every link passes
// through. Known by its address, so that other exceptions copied meanwhile keep their chains.
thread_local const CQvException* t_linkBeingCloned = nullptr;

class CLinkCloneScope {
 public:
  explicit CLinkCloneScope(const CQvException* link)
      : m_outer(std::exchange(t_linkBeingCloned, link)) {}
  ~CLinkCloneScope() { t_linkBeingCloned = m_outer; }
  CLinkCloneScope(const CLinkCloneScope&) = delete;
  CLinkCloneScope& operator=(const CLinkCloneScope&) = delete;

 private:
  const CQvException* m_outer;
};

std::string WithPath(const std::string& message, const std::string& path) {
  return path.empty() ? message : message + "\nPath: " + path;
}

}  // namespace

constinit CInstanceCounter CQvException::s_instances("CQvException");

CQvException::CQvException() = default;

CQvException::CQvException(const std::string& message) : m_message(message) {}

CQvException::CQvException(const std::string& message, const std::string& path)
    : m_message(WithPath(message, path)), m_path(path) {}

CQvException::CQvException(const std::string& message, const CQvException& inner)
    : m_message(message), m_inner(CloneChain(&inner)) {}

CQvException::CQvException(const std::string& message, const std::string& path,
                           const CQvException& inner)
    : m_message(WithPath(message, path)), m_path(path), m_inner(CloneChain(&inner)) {}

CQvException::CQvException(const CQvException& other)
    : m_message(other.m_message),
      m_path(other.m_path),
      m_inner(&other == t_linkBeingCloned ? nullptr : CloneChain(other.m_inner)) {}

CQvException::CQvException(CQvException&& other) noexcept
    : m_message(std::move(other.m_message)),
      m_path(std::move(other.m_path)),
      m_inner(std::exchange(other.m_inner, nullptr)) {}

CQvException& CQvException::operator=(const CQvException& other) {
  if (this == &other) return *this;
  // Copied before anything is released: `other` may be part of this exception's own chain.
  std::string message = other.m_message;
  CQvException* inner = CloneChain(other.m_inner);
  m_message.swap(message);
  DeleteChain(std::exchange(m_inner, inner));
  return *this;
}

CQvException::~CQvException() { DeleteChain(m_inner); }

CQvException* CQvException::Clone() const { return new CQvException(*this); }

std::string CQvException::GetFullMessage() const {
  std::string text;
  for (const CQvException* link = this; link != nullptr; link = link->m_inner) {
    text += link->m_message;
    if (link->m_inner != nullptr && !link->m_message.empty()) text += '\n';
  }
  return text;
}

void CQvException::MoveInto(CQvException& outer, CQvException& caught) {
  CQvException* clone = caught.CloneLink();
  clone->m_inner = std::exchange(caught.m_inner, nullptr);
  DeleteChain(std::exchange(outer.m_inner, clone));
}

CQvException* CQvException::CloneLink() const {
  const CLinkCloneScope scope(this);
  CQvException* clone = Clone();
  // A user's Clone that does not copy, but builds from the parts, brings a chain of its own.
  DeleteChain(std::exchange(clone->m_inner, nullptr));
  return clone;
}

// A loop, not a recursion: a chain may have as many links as a document has levels.
CQvException* CQvException::CloneChain(const CQvException* first) {
  if (first == nullptr) return nullptr;
  CQvException* head = first->CloneLink();
  try {
    CQvException* tail = head;
    for (const CQvException* link = first->m_inner; link != nullptr; link = link->m_inner) {
      tail->m_inner = link->CloneLink();
      tail = tail->m_inner;
    }
  } catch (...) {
    DeleteChain(head);
    throw;
  }
  return head;
}

void CQvException::DeleteChain(CQvException* first) noexcept {
  while (first != nullptr) {
    CQvException* next = std::exchange(first->m_inner, nullptr);
    delete first;
    first = next;
  }
}

constinit CInstanceCounter CQvValidationException::s_instances("CQvValidationException");

CQvValidationException::CQvValidationException() = default;
CQvValidationException::CQvValidationException(const CQvException& other) : CQvException(other) {}
CQvValidationException::CQvValidationException(const std::string& message, const std::string& path)
    : CQvException(message, path) {}
CQvValidationException::CQvValidationException(const std::string& message, const std::string& path,
                                               const CQvException& inner)
    : CQvException(message, path, inner) {}
CQvValidationException::CQvValidationException(const CQvValidationException& other) = default;
CQvValidationException::CQvValidationException(CQvValidationException&& other) noexcept = default;
CQvValidationException::~CQvValidationException() = default;
CQvException* CQvValidationException::Clone() const { return new CQvValidationException(*this); }

constinit CInstanceCounter CQvInvalidValueException::s_instances("CQvInvalidValueException");

CQvInvalidValueException::CQvInvalidValueException() = default;
CQvInvalidValueException::CQvInvalidValueException(const CQvException& other)
    : CQvValidationException(other) {}
CQvInvalidValueException::CQvInvalidValueException(const std::string& message)
    : CQvValidationException(message, std::string()) {}
CQvInvalidValueException::CQvInvalidValueException(const std::string& message,
                                                   const CQvException& inner)
    : CQvValidationException(message, std::string(), inner) {}
CQvInvalidValueException::CQvInvalidValueException(const CQvInvalidValueException& other) = default;
CQvInvalidValueException::CQvInvalidValueException(CQvInvalidValueException&& other) noexcept =
    default;
CQvInvalidValueException::~CQvInvalidValueException() = default;
CQvException* CQvInvalidValueException::Clone() const {
  return new CQvInvalidValueException(*this);
}

constinit CInstanceCounter CQvInvalidNamespaceException::s_instances(
    "CQvInvalidNamespaceException");

CQvInvalidNamespaceException::CQvInvalidNamespaceException() = default;
CQvInvalidNamespaceException::CQvInvalidNamespaceException(const CQvException& other)
    : CQvValidationException(other) {}
CQvInvalidNamespaceException::CQvInvalidNamespaceException(const std::string& message,
                                                           const std::string& path)
    : CQvValidationException(message, path) {}
CQvInvalidNamespaceException::CQvInvalidNamespaceException(const std::string& message,
                                                           const std::string& path,
                                                           const CQvException& inner)
    : CQvValidationException(message, path, inner) {}
CQvInvalidNamespaceException::CQvInvalidNamespaceException(
    const CQvInvalidNamespaceException& other) = default;
CQvInvalidNamespaceException::CQvInvalidNamespaceException(
    CQvInvalidNamespaceException&& other) noexcept = default;
CQvInvalidNamespaceException::~CQvInvalidNamespaceException() = default;
CQvException* CQvInvalidNamespaceException::Clone() const {
  return new CQvInvalidNamespaceException(*this);
}

constinit CInstanceCounter CQvInvalidStateException::s_instances("CQvInvalidStateException");

CQvInvalidStateException::CQvInvalidStateException() = default;
CQvInvalidStateException::CQvInvalidStateException(const CQvException& other)
    : CQvException(other) {}
CQvInvalidStateException::CQvInvalidStateException(const std::string& message)
    : CQvException(message) {}
CQvInvalidStateException::CQvInvalidStateException(const std::string& message,
                                                   const CQvException& inner)
    : CQvException(message, inner) {}
CQvInvalidStateException::CQvInvalidStateException(const CQvInvalidStateException& other) = default;
CQvInvalidStateException::CQvInvalidStateException(CQvInvalidStateException&& other) noexcept =
    default;
CQvInvalidStateException::~CQvInvalidStateException() = default;
CQvException* CQvInvalidStateException::Clone() const {
  return new CQvInvalidStateException(*this);
}

constinit CInstanceCounter CQvInvalidParamException::s_instances("CQvInvalidParamException");

CQvInvalidParamException::CQvInvalidParamException() = default;
CQvInvalidParamException::CQvInvalidParamException(const CQvException& other)
    : CQvException(other) {}
CQvInvalidParamException::CQvInvalidParamException(const std::string& message)
    : CQvException(message) {}
CQvInvalidParamException::CQvInvalidParamException(const std::string& message,
                                                   const CQvException& inner)
    : CQvException(message, inner) {}
CQvInvalidParamException::CQvInvalidParamException(const CQvInvalidParamException& other) = default;
CQvInvalidParamException::CQvInvalidParamException(CQvInvalidParamException&& other) noexcept =
    default;
CQvInvalidParamException::~CQvInvalidParamException() = default;
CQvException* CQvInvalidParamException::Clone() const {
  return new CQvInvalidParamException(*this);
}

constinit CInstanceCounter CQvOverFlowException::s_instances("CQvOverFlowException");

CQvOverFlowException::CQvOverFlowException() = default;
CQvOverFlowException::CQvOverFlowException(const CQvException& other) : CQvException(other) {}
CQvOverFlowException::CQvOverFlowException(const std::string& message) : CQvException(message) {}
CQvOverFlowException::CQvOverFlowException(const std::string& message, const CQvException& inner)
    : CQvException(message, inner) {}
CQvOverFlowException::CQvOverFlowException(const CQvOverFlowException& other) = default;
CQvOverFlowException::CQvOverFlowException(CQvOverFlowException&& other) noexcept = default;
CQvOverFlowException::~CQvOverFlowException() = default;
CQvException* CQvOverFlowException::Clone() const { return new CQvOverFlowException(*this); }

}  // namespace QvXmlLib16
