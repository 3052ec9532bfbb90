#include "qvxml/core/smart_ptr.h"

#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

using QvXmlLib16::CSmartPtr;

namespace {

class CThing {
 public:
  virtual ~CThing() = default;
  long AddRef() { return ++m_references; }
  long Release() {
    const long left = --m_references;
    if (left == 0) {
      ++s_destroyed;
      s_sawNullHolder = m_holder != nullptr && m_holder->Ptr() == nullptr;
      delete this;
    }
    return left;
  }

  long m_references = 0;
  // The holder whose content is looked at when the last reference goes.
  CSmartPtr<CThing>* m_holder = nullptr;
  static int s_destroyed;
  static bool s_sawNullHolder;
};
int CThing::s_destroyed = 0;
bool CThing::s_sawNullHolder = false;

class CDerivedThing : public CThing {};

static_assert(std::is_nothrow_move_constructible_v<CSmartPtr<CThing>>);
static_assert(!std::is_convertible_v<CSmartPtr<CThing>, CSmartPtr<CDerivedThing>>);
static_assert(!std::is_convertible_v<CSmartPtr<CThing>, bool>);

CSmartPtr<CThing> MakeThing() { return new CDerivedThing; }
CSmartPtr<CThing> MakeNothing() { return NULL; }

class SmartPtr : public ::testing::Test {
 protected:
  void SetUp() override { CThing::s_destroyed = 0; }
};

TEST_F(SmartPtr, CountsOneReferenceForEachHolder) {
  CThing* thing = new CThing;
  {
    CSmartPtr<CThing> first(thing);
    EXPECT_EQ(thing->m_references, 1);
    const CSmartPtr<CThing> copy(first);
    EXPECT_EQ(thing->m_references, 2);
    CSmartPtr<CThing> moved(std::move(first));
    EXPECT_EQ(thing->m_references, 2);
    EXPECT_FALSE(first);
    first = copy;
    EXPECT_EQ(thing->m_references, 3);
    first = std::move(moved);
    EXPECT_EQ(thing->m_references, 2);
    first.reset();
    EXPECT_EQ(thing->m_references, 1);
    EXPECT_EQ(CThing::s_destroyed, 0);
  }
  EXPECT_EQ(CThing::s_destroyed, 1);
}

TEST_F(SmartPtr, SurvivesAssignmentToItself) {
  CSmartPtr<CThing> pointer(new CThing);
  CSmartPtr<CThing>& self = pointer;
  pointer = self;
  pointer = std::move(self);
  pointer.reset(pointer.Ptr());
  pointer = pointer.Ptr();
  EXPECT_EQ(pointer->m_references, 1);
  EXPECT_EQ(CThing::s_destroyed, 0);
}

TEST_F(SmartPtr, TakesDerivedAndNullPointers) {
  const CSmartPtr<CDerivedThing> derived(new CDerivedThing);
  CSmartPtr<CThing> base(derived);
  EXPECT_EQ(base, derived);
  EXPECT_EQ(base, derived.Ptr());
  EXPECT_EQ((*base).m_references, 2);
  base = MakeThing();
  EXPECT_NE(base, derived);
  EXPECT_EQ(derived->m_references, 1);
  base = nullptr;
  EXPECT_EQ(CThing::s_destroyed, 1);
  EXPECT_TRUE(base == nullptr);
  EXPECT_TRUE(base == NULL);
  EXPECT_TRUE(derived != nullptr);
  EXPECT_EQ(MakeNothing(), CSmartPtr<CThing>());
}

TEST_F(SmartPtr, IsNullWhenTheLastReferenceGoes) {
  CSmartPtr<CThing> pointer(new CThing);
  pointer->m_holder = &pointer;
  pointer.reset();
  EXPECT_EQ(CThing::s_destroyed, 1);
  EXPECT_TRUE(CThing::s_sawNullHolder);
}

}  // namespace
