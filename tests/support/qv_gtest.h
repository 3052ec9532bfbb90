// Assertions on the library's exceptions: the most derived class, the whole message, the whole
// path.

#ifndef TESTS_SUPPORT_QV_GTEST_H_
#define TESTS_SUPPORT_QV_GTEST_H_

#include <string>
#include <typeinfo>

#include <gtest/gtest.h>

#include "qvxml/core/exception.h"

namespace qv_test {

template <class TExpected, class TStatement>
::testing::AssertionResult Throws(const TStatement& statement, const std::string& message,
                                  const std::string& path = std::string()) {
  try {
    statement();
  } catch (const QvXmlLib16::CQvException& exception) {
    if (typeid(exception) != typeid(TExpected)) {
      return ::testing::AssertionFailure()
             << "threw " << typeid(exception).name() << " instead of " << typeid(TExpected).name()
             << ", message: " << exception.GetMessage();
    }
    if (exception.GetMessage() != message) {
      return ::testing::AssertionFailure()
             << "message is\n  " << exception.GetMessage() << "\ninstead of\n  " << message;
    }
    if (exception.GetPath() != path) {
      return ::testing::AssertionFailure()
             << "path is\n  " << exception.GetPath() << "\ninstead of\n  " << path;
    }
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure() << "threw nothing";
}

}  // namespace qv_test

/// Expects `statement` to throw exactly the class `type` with exactly that message, and with the
/// path given last (none when left out).
#define EXPECT_QV_THROW(statement, type, ...) \
  EXPECT_TRUE(::qv_test::Throws<QvXmlLib16::type>([&] { statement; }, __VA_ARGS__)) << #statement

#endif  // TESTS_SUPPORT_QV_GTEST_H_
