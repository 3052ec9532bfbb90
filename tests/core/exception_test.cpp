#include "qvxml/core/exception.h"

#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include "tests/support/qv_gtest.h"
#include "tests/support/small_stack.h"
#include <gtest/gtest.h>

using namespace QvXmlLib16;

namespace {

static_assert(!std::is_base_of_v<std::exception, CQvException>);
static_assert(!std::is_convertible_v<std::string, CQvException>);
static_assert(std::is_nothrow_move_constructible_v<CQvInvalidValueException>);
static_assert(sizeof(CQvInvalidValueException) == sizeof(CQvException));

// As an application writes one: only Clone is overridden.
class CUserException : public CQvValidationException {
 public:
  CUserException(const std::string& message, int code)
      : CQvValidationException(message, "/user"), m_code(code) {}
  CQvException* Clone() const override { return new CUserException(*this); }
  int m_code;
};

// Carries another exception, which must keep its own chain when this one is cloned as a link.
class CCarrierException : public CQvException {
 public:
  CCarrierException(const std::string& message, const CQvException& carried)
      : CQvException(message), m_carried(carried) {}
  CQvException* Clone() const override { return new CCarrierException(*this); }
  CQvException m_carried;
};

// An odd number of links, "base" and "state" by turns.
CQvException MakeChain(long links) {
  CQvException chain("base");
  for (long i = 1; i < links; i += 2) {
    CQvInvalidStateException outer("state");
    CQvException::MoveInto(outer, chain);
    CQvException::MoveInto(chain, outer);
  }
  return chain;
}

long CountLinks(const CQvException& chain) {
  long links = 0;
  for (const CQvException* link = &chain; link != nullptr; link = link->GetInnerException()) {
    ++links;
  }
  return links;
}

const std::type_info& ClassOf(const CQvException& exception) { return typeid(exception); }

template <class TException>
void ExpectCloneKeepsClass(const TException& original) {
  const CQvException& seen = original;
  const std::unique_ptr<CQvException> clone(seen.Clone());
  EXPECT_EQ(ClassOf(*clone), typeid(TException));
  EXPECT_EQ(clone->GetMessage(), original.GetMessage());
  EXPECT_EQ(clone->GetPath(), original.GetPath());
  EXPECT_EQ(clone->GetFullMessage(), original.GetFullMessage());
  const CQvException outer("outer", seen);
  ASSERT_NE(outer.GetInnerException(), nullptr);
  EXPECT_NE(outer.GetInnerException(), &seen);
  EXPECT_EQ(ClassOf(*outer.GetInnerException()), typeid(TException));
  EXPECT_EQ(outer.GetFullMessage(), "outer\n" + original.GetFullMessage());
}

TEST(CQvException, ComposesTheMessageWithThePath) {
  const CQvException inner("why");
  const struct {
    CQvException exception;
    const char *message, *path, *fullMessage;
  } rows[] = {
      // clang-format off
      {CQvException(), "", "", ""}, {CQvException("m"), "m", "", "m"},
      {CQvException("m", "/a"), "m\nPath: /a", "/a", "m\nPath: /a"},
      {CQvException("", "/a"), "\nPath: /a", "/a", "\nPath: /a"},
      {CQvException("m", inner), "m", "", "m\nwhy"},
      {CQvException("m", "/a", inner), "m\nPath: /a", "/a", "m\nPath: /a\nwhy"},
      {CQvException("", inner), "", "", "why"},
      {CQvException("m", CQvException("", inner)), "m", "", "m\nwhy"},
      {CQvException("a", CQvException("", CQvException())), "a", "", "a\n"},
      {CQvException("a", CQvException("b", "/b", inner)), "a", "", "a\nb\nPath: /b\nwhy"},
      // clang-format on
  };
  for (size_t i = 0; i < std::size(rows); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(rows[i].exception.GetMessage(), rows[i].message);
    EXPECT_EQ(rows[i].exception.GetPath(), rows[i].path);
    EXPECT_EQ(rows[i].exception.GetFullMessage(), rows[i].fullMessage);
  }
}

TEST(CQvException, ClonesTheMostDerivedClass) {
  const CQvException inner("why");
  ExpectCloneKeepsClass(CQvException("m", "/p", inner));
  ExpectCloneKeepsClass(CQvValidationException("m", "/p", inner));
  ExpectCloneKeepsClass(CQvInvalidValueException("m", inner));
  ExpectCloneKeepsClass(CQvInvalidNamespaceException("m", "/p", inner));
  ExpectCloneKeepsClass(CQvInvalidStateException("m", inner));
  ExpectCloneKeepsClass(CQvInvalidParamException("m", inner));
  ExpectCloneKeepsClass(CQvOverFlowException("m", inner));
  ExpectCloneKeepsClass(CUserException("m", 7));
}

TEST(CQvException, CountsUnderItsClassAndTheBases) {
  const auto count = [](const char* name) { return CInstanceMonitor::GetCount(name); };
  const long before = count("CQvException");
  {
    const CQvInvalidValueException value("m");
    const CQvInvalidValueException copy(value);
    const CQvInvalidStateException state("m", CQvInvalidParamException("why"));
    EXPECT_EQ(count("CQvException"), before + 4);
    EXPECT_EQ(count("CQvValidationException"), 2);
    EXPECT_EQ(count("CQvInvalidValueException"), 2);
    EXPECT_EQ(count("CQvInvalidParamException"), 1);
  }
  EXPECT_EQ(count("CQvException"), before);
}

TEST(CQvException, ConvertsFromAnyOther) {
  const CQvValidationException other("m", "/p", CQvException("why"));
  const CQvOverFlowException converted(other);
  EXPECT_EQ(converted.GetPath(), "/p");
  EXPECT_EQ(converted.GetFullMessage(), "m\nPath: /p\nwhy");
  EXPECT_QV_THROW(throw CQvInvalidNamespaceException(other), CQvInvalidNamespaceException,
                  "m\nPath: /p", "/p");
}

TEST(CQvException, AssignmentKeepsItsOwnPath) {
  CQvException target("t", "/target", CQvException("old cause"));
  target = CQvException("s", "/source", CQvInvalidParamException("cause"));
  EXPECT_EQ(target.GetPath(), "/target");
  EXPECT_EQ(target.GetFullMessage(), "s\nPath: /source\ncause");
  EXPECT_EQ(ClassOf(*target.GetInnerException()), typeid(CQvInvalidParamException));

  const CQvException& self = target;
  target = self;
  EXPECT_EQ(target.GetFullMessage(), "s\nPath: /source\ncause");
  target = *target.GetInnerException();
  EXPECT_EQ(target.GetFullMessage(), "cause");
  EXPECT_EQ(target.GetInnerException(), nullptr);
}

TEST(CQvException, KeepsTheChainsThatUserClassesCarry) {
  const CQvException carried("carried", CQvException("carried cause"));
  const CCarrierException carrier("carrier", carried);
  const CQvException outer("outer", CQvException("middle", carrier));
  const CQvException copy(outer);
  const auto* link =
      dynamic_cast<const CCarrierException*>(copy.GetInnerException()->GetInnerException());
  ASSERT_NE(link, nullptr);
  EXPECT_EQ(link->m_carried.GetFullMessage(), "carried\ncarried cause");
  EXPECT_EQ(link->GetInnerException(), nullptr);
}

TEST(CQvException, MovesACaughtChainIntoTheOuterOne) {
  CUserException caught("caught", 7);
  CQvException cause("cause", CQvException("root"));
  CQvException::MoveInto(caught, cause);
  EXPECT_EQ(cause.GetFullMessage(), "cause");
  const CQvException* causeLink = caught.GetInnerException();

  CQvException outer("outer", CQvException("replaced"));
  CQvException::MoveInto(outer, caught);
  EXPECT_EQ(outer.GetFullMessage(), "outer\ncaught\nPath: /user\ncause\nroot");
  EXPECT_EQ(caught.GetInnerException(), nullptr);
  const auto* link = dynamic_cast<const CUserException*>(outer.GetInnerException());
  ASSERT_NE(link, nullptr);
  EXPECT_EQ(link->m_code, 7);
  EXPECT_EQ(link->GetInnerException(), causeLink);
}

TEST(CQvException, IsMovedNotClonedWhenALocalOneIsThrown) {
  const CQvException* innerThrown = nullptr;
  try {
    CQvInvalidValueException local("m", CQvException("why"));
    innerThrown = local.GetInnerException();
    throw local;
  } catch (const CQvException& caught) {
    EXPECT_EQ(caught.GetInnerException(), innerThrown);
    EXPECT_EQ(caught.GetFullMessage(), "m\nwhy");
  }
}

TEST(CQvException, HandlesAMillionLinksWithoutRecursion) {
  static constexpr long kLinks = 1000001;
  const long before = CInstanceMonitor::GetCount("CQvException");
  qv_test::RunOnSmallStack([] {
    const CQvException chain = MakeChain(kLinks);
    EXPECT_EQ(CountLinks(chain), kLinks);
    const std::unique_ptr<CQvException> clone(chain.Clone());
    EXPECT_EQ(CountLinks(*clone), kLinks);
    const CQvInvalidParamException outer("outer", *clone);
    CQvException assigned;
    assigned = outer;
    EXPECT_EQ(CountLinks(assigned), kLinks + 1);
    const std::string text = assigned.GetFullMessage();
    EXPECT_EQ(text.substr(0, 17), "outer\nbase\nstate\n");
    EXPECT_EQ(text.size(), 5u + 500001 * 5 + 500000 * 6);
  });
  EXPECT_EQ(CInstanceMonitor::GetCount("CQvException"), before);
}

TEST(CQvException, WrapsOncePerLevelInLinearTime) {
  const long before = CInstanceMonitor::GetCount("CQvException");
  {
    auto held = std::make_unique<CQvException>("root");
    for (int level = 0; level < 20000; ++level) {
      try {
        try {
          throw CQvException(std::move(*held));
        } catch (CQvException& caught) {
          CQvValidationException outer("level", "/x");
          CQvException::MoveInto(outer, caught);
          throw outer;
        }
      } catch (CQvException& caught) {
        held = std::make_unique<CQvException>(std::move(caught));
      }
    }
    EXPECT_EQ(CountLinks(*held), 20001);
  }
  EXPECT_EQ(CInstanceMonitor::GetCount("CQvException"), before);
}

}  // namespace
