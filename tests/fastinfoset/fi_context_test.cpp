#include "qvxml/fastinfoset/fi_context.h"

#include "tests/support/qv_gtest.h"
#include <gtest/gtest.h>

#include "qvxml/binding/serialization_context.h"

using namespace QvXmlLib16;

TEST(CFastInfosetContext, SuggestsAnEncodingForEachType) {
  // By item type: kind and index.
  const int expected[29][2] = {{0, 0}, {2, 1}, {2, 2}, {2, 3}, {2, 3}, {2, 4}, {2, 5}, {2, 3},
                               {2, 4}, {2, 5}, {2, 5}, {2, 7}, {2, 8}, {0, 0}, {1, 2}, {1, 2},
                               {1, 2}, {1, 2}, {1, 2}, {1, 2}, {1, 2}, {1, 2}, {0, 0}, {0, 0},
                               {2, 6}, {1, 1}, {1, 1}, {0, 0}, {0, 0}};
  CFastInfosetContext context;
  for (int type = 0; type < 29; ++type) EXPECT_EQ(context.GetEncoding(type).kind, 0);
  context.SetEncoding(ItemType_string, {1, 1});
  context.SetSuggestedValues();
  for (int type = 0; type < 29; ++type) {
    SCOPED_TRACE(type);
    EXPECT_EQ(context.GetEncoding(type).kind, expected[type][0]);
    EXPECT_EQ(context.GetEncoding(type).index, static_cast<unsigned>(expected[type][1]));
  }
}

TEST(CFastInfosetContext, RefusesWhatDoesNotExist) {
  CFastInfosetContext context;
  EXPECT_QV_THROW(context.SetEncoding(29, {}), CQvInvalidParamException, "Invalid item type [29].");
  EXPECT_QV_THROW(context.GetEncoding(-1), CQvInvalidParamException, "Invalid item type [-1].");
  context.SetDefaultStringEncoding(1);
  EXPECT_QV_THROW(context.SetDefaultStringEncoding(2), CQvInvalidParamException,
                  "Invalid string encoding [2].");
  EXPECT_EQ(context.GetDefaultStringEncoding(), 1);
}

TEST(CFastInfosetContext, IsSharedByCopiesOfItsOwner) {
  const long before = CInstanceMonitor::GetCount("CFastInfosetContext");
  {
    CSerializationContext early;
    const CSerializationContext withoutOne(early);
    CFastInfosetContext& made = early.GetFIContext();
    EXPECT_NE(&made, &withoutOne.GetFIContext());
    CSerializationContext assigned;
    assigned.GetFIContext();
    assigned = CSerializationContext(early);
    assigned = static_cast<const CSerializationContext&>(assigned);
    EXPECT_EQ(&made, &assigned.GetFIContext());
    EXPECT_EQ(CInstanceMonitor::GetCount("CFastInfosetContext"), before + 2);
  }
  EXPECT_EQ(CInstanceMonitor::GetCount("CFastInfosetContext"), before);
}
